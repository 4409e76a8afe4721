// Run-time classes, the system registry, the dynamic linker and the application messages.
#pragma once

#include "adesk_types.h"

class AcRxClass;

/// Allocation of objects that cross the boundary between module and host: both sides use the
/// host's heap. Documented.
class AcHeapOperators {
  public:
    static void* operator new(std::size_t size);
    static void* operator new(std::size_t, void* place) noexcept { return place; }
    static void operator delete(void* memory) noexcept;
};

/// Root of the run-time class tree.
class AcRxObject : public AcHeapOperators {
  public:
    AcRxObject() = default;
    virtual ~AcRxObject();
    AcRxObject(const AcRxObject&) = delete;
    AcRxObject& operator=(const AcRxObject&) = delete;

    /// The descriptor of AcRxObject itself. Never null; owned by the host.
    static AcRxClass* desc();
    /// The descriptor of the object's own class. Never null; owned by the host. Assumed.
    virtual AcRxClass* isA() const;
    /// True when the object's class is `aClass` or derived from it. Assumed.
    bool isKindOf(const AcRxClass* aClass) const;
};

/// Descriptor of a run-time class.
class AcRxClass : public AcRxObject {
  public:
    AcRxClass(const ACHAR* name, AcRxClass* parent);

    static AcRxClass* desc();
    AcRxClass* isA() const override;
    /// The class's name; owned by the descriptor.
    const ACHAR* name() const { return m_name; }
    /// True for the class itself and for every class above it. Assumed.
    bool isDerivedFrom(const AcRxClass* other) const;

  private:
    const ACHAR* m_name;
    AcRxClass* m_parent;
};

/// Declares the run-time class members of `CLASS`.
#define ACRX_DECLARE_MEMBERS(CLASS)                                       \
    static AcRxClass* desc();                                             \
    AcRxClass* isA() const override;                                      \
    static CLASS* cast(const AcRxObject* object) {                        \
        return object != nullptr && object->isKindOf(CLASS::desc())       \
                   ? static_cast<CLASS*>(const_cast<AcRxObject*>(object)) \
                   : nullptr;                                             \
    }

/// Dictionary from text to run-time objects. Lookup minds case. Chosen.
class AcRxDictionary : public AcRxObject {
  public:
    static AcRxClass* desc();
    AcRxClass* isA() const override;
    /// The object under `key`, or null; still owned by the dictionary or its registrant. Assumed.
    AcRxObject* at(const ACHAR* key) const;
};

/// The session's registry of services: "AcEditor", "ACAD_REGISTERED_COMMANDS", "DynamicLinker".
/// Owned by the host. Assumed (a macro over the class dictionary in the real interface).
AcRxDictionary* acrxSysRegistry();

/// Loads and unloads application modules.
class AcRxDynamicLinker : public AcRxObject {
  public:
    ACRX_DECLARE_MEMBERS(AcRxDynamicLinker)
    /// Makes the application with identity `pkt` unloadable; applications start locked. True on
    /// success. Documented.
    virtual bool unlockApplication(void* pkt) const;
    /// Declares that the application works with several open drawings. Without it the module
    /// cannot be loaded while several are open, and prevents more from being opened. Documented.
    virtual bool registerAppMDIAware(void* pkt) const;
};

/// Messages and answers of an application's entry point.
namespace AcRx {
/// Codes 1 to 5 are required; the others are distinct values above them. Documented names.
enum AppMsgCode : int {
    kNullMsg = 0,
    kInitAppMsg = 1,
    kUnloadAppMsg = 2,
    kLoadDwgMsg = 3,
    kUnloadDwgMsg = 4,
    kInvkSubrMsg = 5,
    kCfgMsg = 6,
    kEndMsg = 7,
    kQuitMsg = 8,
    kSaveMsg = 9,
    kDependencyMsg = 10,
    kNoDependencyMsg = 11,
    kOleUnloadAppMsg = 12,
    kPreQuitMsg = 13,
};
enum AppRetCode { kRetOK = 0, kRetError = 3 };
}  // namespace AcRx
