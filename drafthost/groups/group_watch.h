// Watches what repairs do to the groups of the drawings of a session.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "drafthost/job.h"
#include "host/objectarx/editor.h"
#include "host/store/store.h"
#include "inspection/inspection.h"

/// While it lives it tells, a line each, which groups the repair before a save, in REGEN or
/// after a paste dissolved or shortened, and at a drawing's first save whether it is damaged. Make
/// it before a module is loaded, so that it sees a drawing before the module does, and destroy it
/// before the session.
class GroupWatch : public AcEditorReactor {
  public:
    /// The job has to live longer.
    GroupWatch(const Job& job, std::function<void(const std::string& line)> tell);
    ~GroupWatch() override;
    GroupWatch(const GroupWatch&) = delete;
    GroupWatch& operator=(const GroupWatch&) = delete;

    /// What the last such repair did to a drawing, given the serial number of its store.
    const std::vector<std::string>& lastChanges(std::uint32_t serial) { return m_changes[serial]; }

  private:
    void beginSave(AcDbDatabase* drawing, const ACHAR* name) override;
    void saveComplete(AcDbDatabase* drawing, const ACHAR* name) override;
    void commandWillStart(const ACHAR* name) override;
    void commandEnded(const ACHAR* name) override;
    void warnOfDamage(const host::Store& store, const std::string& name);
    void look(AcDbDatabase& drawing);
    void tell(AcDbDatabase& drawing, const std::string& name, const std::string& repair);

    const Job& m_job;
    std::function<void(const std::string&)> m_say;
    inspection::Inspection m_before;
    std::set<std::uint32_t> m_checked;  ///< serial numbers of stores
    std::map<std::uint32_t, std::vector<std::string>> m_changes;
};
