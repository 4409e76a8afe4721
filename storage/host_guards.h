// Guards that give back what the host handed out, on every path.
#pragma once

#include <exception>
#include <type_traits>

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

/// Frees a selection set when an exception passes by. Otherwise it does nothing: the module frees
/// its sets, or leaves them, at fixed places.
class FreedOnThrow {
  public:
    using Word = std::remove_extent_t<ads_name>;
    /// `set` may be filled later, and has to live longer.
    explicit FreedOnThrow(const Word* set) : m_set(set) {}
    ~FreedOnThrow() {
        if (std::uncaught_exceptions() > m_passing) acedSSFree(m_set);
    }
    FreedOnThrow(const FreedOnThrow&) = delete;
    FreedOnThrow& operator=(const FreedOnThrow&) = delete;

  private:
    const Word* m_set;
    int m_passing = std::uncaught_exceptions();
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
