// Guards that give back what the host handed out, on every path.
#pragma once

#include "platform.h"

/// Base of what has one owner.
class NotCopied {
  protected:
    NotCopied() {}
    ~NotCopied() {}

  private:
    NotCopied(const NotCopied&);  // neither is defined
    NotCopied& operator=(const NotCopied&);
};

/// Closes an opened object when it goes out of scope.
template <typename T>
class Opened : private NotCopied {
  public:
    Opened() : m_pObject(nullptr) {}
    ~Opened() { close(); }

    /// Where an opening call puts the object; whatever was open before is closed first.
    T*& receive() {
        close();
        return m_pObject;
    }
    void close() {
        if (m_pObject != nullptr) m_pObject->close();
        m_pObject = nullptr;
    }
    bool isOpen() const { return m_pObject != nullptr; }
    T* get() const { return m_pObject; }
    T* operator->() const { return m_pObject; }

  private:
    T* m_pObject;
};

/// Owns a selection set and frees it when it goes out of scope.
class OwnedSelection : private NotCopied {
  public:
    OwnedSelection() { release(); }
    ~OwnedSelection() { free(); }

    /// The set's name, empty without a set; where a call that makes a set puts it.
    ads_name& name() { return m_aName; }
    /// Frees the set before its end, for those who want to know how that went: the code of
    /// acedSSFree, RTNORM without a set.
    int free() {
        if (m_aName[0] == 0 && m_aName[1] == 0) return RTNORM;
        const int status = acedSSFree(m_aName);
        release();
        return status;
    }
    /// Somebody else has the set now, or nobody.
    void release() { ads_name_clear(m_aName); }

  private:
    ads_name m_aName;
};

/// Holds an object made with `new`: closes it once it joined the database, deletes it otherwise.
template <typename T>
class NewObject : private NotCopied {
  public:
    explicit NewObject(T* object) : m_pObject(object) {}
    ~NewObject() { release(); }

    void release() {
        if (m_pObject == nullptr) return;
        if (m_pObject->objectId().isNull()) {
            delete m_pObject;
        } else {
            m_pObject->close();
        }
        m_pObject = nullptr;
    }
    T* get() const { return m_pObject; }
    T* operator->() const { return m_pObject; }

  private:
    T* m_pObject;
};

/// Deletes an iterator when it goes out of scope. Declare it behind the object it walks over.
template <typename T>
class Iterator : private NotCopied {
  public:
    explicit Iterator(T* iterator = nullptr) : m_pIterator(iterator) {}
    ~Iterator() { delete m_pIterator; }

    T*& receive() { return m_pIterator; }
    bool isThere() const { return m_pIterator != nullptr; }
    /// Nothing is left to visit: the walk is over, or the host gave no iterator.
    bool done() const { return m_pIterator == nullptr || m_pIterator->done(); }
    T* operator->() const { return m_pIterator; }

  private:
    T* m_pIterator;
};

/// Releases a result-buffer chain.
class ResultBuffers : private NotCopied {
  public:
    explicit ResultBuffers(resbuf* chain = nullptr) : m_pChain(chain) {}
    ~ResultBuffers() { release(); }

    void release() {
        if (m_pChain != nullptr) acutRelRb(m_pChain);
        m_pChain = nullptr;
    }
    resbuf** receive() {
        release();
        return &m_pChain;
    }
    resbuf* get() const { return m_pChain; }

  private:
    resbuf* m_pChain;
};
