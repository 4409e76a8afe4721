// Status values of the database calls. Callers compare names, never numbers.
#pragma once

/// Results of database calls. The numbers 18, 26, 90 and 105 are documented; the others are
/// assumed.
namespace Acad {
enum ErrorStatus {
    eOk = 0,
    eNotApplicable = 2,
    eInvalidInput = 3,
    eOutOfMemory = 6,
    eInvalidOpenState = 8,
    eUnknownHandle = 13,
    eNullObjectPointer = 15,
    eNullObjectId = 16,
    eContainerNotEmpty = 18,
    eKeyNotFound = 21,
    eDuplicateKey = 22,
    eInvalidIndex = 23,
    eAlreadyInDb = 26,
    eInvalidAdsName = 31,
    eInvalidSymbolTableName = 32,
    eInvalidKey = 33,
    eWrongObjectType = 34,
    eWrongDatabase = 35,
    eNotOpenForRead = 44,
    eNotOpenForWrite = 45,
    eNotThatKindOfClass = 46,
    eInvalidDxfCode = 50,
    eInvalidResBuf = 51,
    eWasErased = 80,
    eWasOpenForRead = 82,
    eWasOpenForWrite = 83,
    eOnLockedLayer = 87,
    eAtMaxReaders = 90,
    eHadMultipleReaders = 94,
    eDuplicateRecordName = 95,
    eCannotBeErasedByCaller = 105,
    eNotInDatabase = 137,
};
}  // namespace Acad
