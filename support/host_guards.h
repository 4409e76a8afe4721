// Guards that give back what the host handed out, on every path.
#pragma once

#include "platform.h"

/// Closes an opened object when it goes out of scope.
template <typename T>
class Opened {
  public:
    Opened() = default;
    ~Opened() { close(); }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;

    /// Where an opening call puts the object; whatever was open before is closed first.
    T*& receive() {
        close();
        return m_object;
    }
    void close() {
        if (m_object != nullptr) m_object->close();
        m_object = nullptr;
    }
    T* get() const { return m_object; }
    T* operator->() const { return m_object; }
    explicit operator bool() const { return m_object != nullptr; }

  private:
    T* m_object = nullptr;
};

/// Owns a selection set and frees it when it goes out of scope.
class OwnedSelection {
  public:
    OwnedSelection() = default;
    ~OwnedSelection() { free(); }
    OwnedSelection(const OwnedSelection&) = delete;
    OwnedSelection& operator=(const OwnedSelection&) = delete;

    /// The set's name, empty without a set; where a call that makes a set puts it.
    ads_name& name() { return m_name; }
    /// Frees the set before its end, for those who want to know how that went: the code of
    /// acedSSFree, RTNORM without a set.
    int free() {
        if (m_name[0] == 0 && m_name[1] == 0) return RTNORM;
        const int status = acedSSFree(m_name);
        release();
        return status;
    }
    /// Somebody else has the set now, or nobody.
    void release() { ads_name_clear(m_name); }

  private:
    ads_name m_name = {};
};

/// Holds an object made with `new`: closes it once it joined the database, deletes it otherwise.
template <typename T>
class NewObject {
  public:
    explicit NewObject(T* object) : m_object(object) {}
    ~NewObject() { release(); }
    NewObject(const NewObject&) = delete;
    NewObject& operator=(const NewObject&) = delete;

    void release() {
        if (m_object == nullptr) return;
        if (m_object->objectId().isNull()) {
            delete m_object;
        } else {
            m_object->close();
        }
        m_object = nullptr;
    }
    T* get() const { return m_object; }
    T* operator->() const { return m_object; }

  private:
    T* m_object;
};

/// Deletes an iterator when it goes out of scope. Declare it behind the object it walks over.
template <typename T>
class Iterator {
  public:
    explicit Iterator(T* iterator = nullptr) : m_iterator(iterator) {}
    ~Iterator() { delete m_iterator; }
    Iterator(const Iterator&) = delete;
    Iterator& operator=(const Iterator&) = delete;

    T*& receive() { return m_iterator; }
    T* operator->() const { return m_iterator; }
    explicit operator bool() const { return m_iterator != nullptr; }

  private:
    T* m_iterator;
};

/// Releases a result-buffer chain.
class ResultBuffers {
  public:
    explicit ResultBuffers(resbuf* chain = nullptr) : m_chain(chain) {}
    ~ResultBuffers() { release(); }
    ResultBuffers(const ResultBuffers&) = delete;
    ResultBuffers& operator=(const ResultBuffers&) = delete;

    void release() {
        if (m_chain != nullptr) acutRelRb(m_chain);
        m_chain = nullptr;
    }
    resbuf** receive() {
        release();
        return &m_chain;
    }
    resbuf* get() const { return m_chain; }

  private:
    resbuf* m_chain;
};
