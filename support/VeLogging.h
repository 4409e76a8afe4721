// The application's logging object and its log session.
#pragma once

#include <memory>
#include <string>

/// A session of the application log. It records nothing: in this application the log is silent.
class CLogSession {
  public:
    CLogSession(const std::wstring& sApplicationName, const std::wstring& sVersion);
    virtual ~CLogSession() {}

    /// Accepts a text and discards it.
    virtual void log(const std::wstring& sText);

  private:
    std::wstring m_sApplicationName;
    std::wstring m_sVersion;
};

/// The logging object; it owns its session.
class CVelmoLogging {
  public:
    CVelmoLogging(const std::wstring& sApplicationName, const std::wstring& sVersion);
    virtual ~CVelmoLogging();

    /// Hands a text to the session.
    void log(const std::wstring& sText);

    /// Null only when there was no memory for it.
    std::unique_ptr<CLogSession> m_pLogSession;
};

/// The one logging object of the process; null when there is none.
extern CVelmoLogging* G_pLoggingObject;

/// Makes the logging object. One that exists already is an assertion; the new one then takes its
/// place and the former is not freed.
void createLogging(const std::wstring& sApplicationName, const std::wstring& sVersion);
/// Hands the name of a used command to the log session; nothing without a logging object.
void logCommandUse(const std::wstring& sText);
/// Deletes the logging object, if there is one.
void destroyLogging();
