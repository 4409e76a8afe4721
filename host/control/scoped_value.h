// A variable that has another value for a while.
#pragma once

#include <utility>

namespace host {

/// Gives a variable another value for as long as this lives; then it has its former one again.
template <typename T>
class ScopedValue {
  public:
    ScopedValue(T& variable, T value)
        : m_variable(variable), m_former(std::exchange(variable, std::move(value))) {}
    ~ScopedValue() { m_variable = std::move(m_former); }
    ScopedValue(const ScopedValue&) = delete;
    ScopedValue& operator=(const ScopedValue&) = delete;

  private:
    T& m_variable;
    T m_former;
};

}  // namespace host
