// Entities: general properties, block references with attributes, texts and old-style polylines.
#pragma once

#include <string>

#include "database_objects.h"
#include "geometry.h"

class AcDbAttribute;
class AcDbSequenceEnd;

namespace AcDb {
enum TextHorzMode {
    kTextLeft = 0,
    kTextCenter = 1,
    kTextRight = 2,
    kTextAlign = 3,
    kTextMid = 4,
    kTextFit = 5
};
enum TextVertMode { kTextBase = 0, kTextBottom = 1, kTextVertMid = 2, kTextTop = 3 };
}  // namespace AcDb

/// Anything that can be drawn. Kinds without a class of their own are plain AcDbEntity.
/// Setters need write access and answer eNotOpenForWrite without it. Assumed unless marked.
class AcDbEntity : public AcDbObject {
  public:
    ACRX_DECLARE_MEMBERS(AcDbEntity)
    explicit AcDbEntity(host::ObjectBody* body) : AcDbObject(body) {}

    /// Sets the layer by name in the entity's (or, before it has one, the working) database;
    /// eKeyNotFound for an unknown layer. With `doSubents` attributes and vertices follow.
    Acad::ErrorStatus setLayer(const ACHAR* name, Adesk::Boolean doSubents = Adesk::kTrue);
    /// 0 ByBlock, 256 ByLayer; eInvalidInput above 256.
    Acad::ErrorStatus setColorIndex(Adesk::UInt16 color, Adesk::Boolean doSubents = Adesk::kTrue);
    /// Sets the linetype by name; eKeyNotFound for an unknown one.
    Acad::ErrorStatus setLinetype(const ACHAR* name, Adesk::Boolean doSubents = Adesk::kTrue);
    /// Copies colour, layer, linetype, linetype scale, line weight and visibility, nothing else.
    /// Documented name, extent assumed.
    Acad::ErrorStatus setPropertiesFrom(const AcDbEntity* source,
                                        Adesk::Boolean doSubents = Adesk::kTrue);
    AcDbObjectId layerId() const;
};

/// Opens an entity; eNotThatKindOfClass for an object that is none. Otherwise as acdbOpenObject.
/// Assumed.
Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& entity, AcDbObjectId id, AcDb::OpenMode mode);

/// Frees a string that an interface call allocated for the caller; null is harmless. Assumed.
void acutDelString(ACHAR*& text);

/// Single line of text. Defaults of a new attribute or definition: position (0, 0, 0), height 0 (by
/// switch others), rotation 0, left, baseline. Documented. Angles are radians.
class AcDbText : public AcDbEntity {
  public:
    ACRX_DECLARE_MEMBERS(AcDbText)
    explicit AcDbText(host::ObjectBody* body) : AcDbEntity(body) {}

    AcGePoint3d position() const;
    Acad::ErrorStatus setPosition(const AcGePoint3d& position);
    double height() const;
    Acad::ErrorStatus setHeight(double height);
    double rotation() const;
    Acad::ErrorStatus setRotation(double radians);
    Acad::ErrorStatus setHorizontalMode(AcDb::TextHorzMode mode);
    Acad::ErrorStatus setVerticalMode(AcDb::TextVertMode mode);
    /// The text, borrowed until the next call on this object or its closing.
    const ACHAR* textStringConst() const;
    Acad::ErrorStatus setTextString(const ACHAR* text);

  protected:
    const ACHAR* borrowed(const wchar_t* text) const;

  private:
    mutable std::wstring m_borrowed;  ///< what the last call that lends a text has lent
};

/// Definition of an attribute inside a block.
class AcDbAttributeDefinition : public AcDbText {
  public:
    ACRX_DECLARE_MEMBERS(AcDbAttributeDefinition)
    AcDbAttributeDefinition();
    explicit AcDbAttributeDefinition(host::ObjectBody* body) : AcDbText(body) {}

    /// Borrowed until the next call on this object or its closing.
    const ACHAR* tagConst() const;
    Acad::ErrorStatus setTag(const ACHAR* tag);
    Acad::ErrorStatus setPrompt(const ACHAR* prompt);
    Adesk::Boolean isInvisible() const;
    Acad::ErrorStatus setInvisible(Adesk::Boolean invisible);
    Adesk::Boolean isConstant() const;
    Acad::ErrorStatus setConstant(Adesk::Boolean constant);
    Acad::ErrorStatus setVerifiable(Adesk::Boolean verifiable);
    Acad::ErrorStatus setPreset(Adesk::Boolean preset);
    /// Stored, never used to cut a text.
    Acad::ErrorStatus setFieldLength(Adesk::UInt16 length);
};

/// Attribute of a placed block reference.
class AcDbAttribute : public AcDbText {
  public:
    ACRX_DECLARE_MEMBERS(AcDbAttribute)
    AcDbAttribute();
    explicit AcDbAttribute(host::ObjectBody* body) : AcDbText(body) {}

    const ACHAR* tagConst() const;
    Acad::ErrorStatus setTag(const ACHAR* tag);
    Acad::ErrorStatus setInvisible(Adesk::Boolean invisible);
    Acad::ErrorStatus setFieldLength(Adesk::UInt16 length);
};

/// Ends the attributes of a block reference or the vertices of a polyline. The host makes it.
class AcDbSequenceEnd : public AcDbEntity {
  public:
    ACRX_DECLARE_MEMBERS(AcDbSequenceEnd)
    explicit AcDbSequenceEnd(host::ObjectBody* body) : AcDbEntity(body) {}
};

/// Walks the live sub-entities of one entity in their order, without the sequence end. The
/// caller deletes it before the entity is closed. Assumed.
class AcDbObjectIterator : public AcRxObject {
  public:
    AcDbObjectIterator(const AcDbEntity& parent);
    ~AcDbObjectIterator() override;
    static AcRxClass* desc();
    AcRxClass* isA() const override;

    /// To the first sub-entity.
    void start();
    /// To the next one; harmless when done.
    void step();
    bool done() const;
    /// Id of the current sub-entity, or the null id when done.
    AcDbObjectId objectId() const;

  private:
    AcDbObjectId m_parent;
    AcDbObjectId m_current;
};

/// Placed block. A reference without attributes has no sequence end. Documented.
class AcDbBlockReference : public AcDbEntity {
  public:
    ACRX_DECLARE_MEMBERS(AcDbBlockReference)
    AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId blockTableRecord);
    explicit AcDbBlockReference(host::ObjectBody* body) : AcDbEntity(body) {}

    AcGePoint3d position() const;
    /// Moves the insertion point; attributes stay where they are. Assumed.
    Acad::ErrorStatus setPosition(const AcGePoint3d& position);
    Acad::ErrorStatus setScaleFactors(const AcGeScale3d& scale);
    /// The block's record, or the null id when the block is unknown.
    AcDbObjectId blockTableRecord() const;
    /// Adds an attribute behind the present ones; the first one brings the sequence end into
    /// being. The reference must be in a database and open for write; the attribute stays open.
    /// Documented, errors assumed.
    Acad::ErrorStatus appendAttribute(AcDbAttribute* attribute);
    Acad::ErrorStatus appendAttribute(AcDbObjectId& id, AcDbAttribute* attribute);
    /// New iterator over the attributes; the caller deletes it. Assumed.
    AcDbObjectIterator* attributeIterator() const;
    /// Opens an attribute of this reference; `attribute` is null on failure. Assumed.
    Acad::ErrorStatus openAttribute(AcDbAttribute*& attribute, AcDbObjectId id,
                                    AcDb::OpenMode mode);
    /// Opens the sequence end; eNullObjectId (chosen) and null when there are no attributes.
    Acad::ErrorStatus openSequenceEnd(AcDbSequenceEnd*& end, AcDb::OpenMode mode);
};

/// Old-style two-dimensional polyline: vertices and a sequence end of its own.
class AcDb2dPolyline : public AcDbEntity {
  public:
    ACRX_DECLARE_MEMBERS(AcDb2dPolyline)
    explicit AcDb2dPolyline(host::ObjectBody* body) : AcDbEntity(body) {}
    /// Opens the sequence end; null on failure. Documented.
    Acad::ErrorStatus openSequenceEnd(AcDbSequenceEnd*& end, AcDb::OpenMode mode);
};

/// Old-style three-dimensional polyline. Documented.
class AcDb3dPolyline : public AcDbEntity {
  public:
    ACRX_DECLARE_MEMBERS(AcDb3dPolyline)
    explicit AcDb3dPolyline(host::ObjectBody* body) : AcDbEntity(body) {}
};
