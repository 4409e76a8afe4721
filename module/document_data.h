// What the module keeps for each open drawing, and the manager of these records.
#pragma once

#include <map>

#include "platform.h"

/// State of grouping in one drawing. A plain value; holds ids, never pointers into the drawing.
class CDocData {
  public:
    /// Grouping starts switched on, and changes of the pick-first set are followed; all else is off
    /// or empty. Greys the menu item that switches grouping on: every drawing that the module meets
    /// for the first time does so, whatever state the menu was in.
    CDocData();

    /// Print the progress line while the current widening of the pick-first set runs.
    bool m_bReportGathering;
    /// Picking a member selects the whole group.
    bool m_bActive;
    /// When false the next change of the pick-first set is ignored, and this is true again.
    bool m_bReactToPickfirst;
    /// The pick-first set was widened to whole groups.
    bool m_bSelectionHasGroups;
    /// The clipboard took grouped entities, so that a later paste makes groups.
    bool m_bClipboardHasGroups;
    /// Last entity of the drawing when a copying command began; what follows it is new.
    AcDbObjectId m_idLastBeforeCommand;
    /// Ids gathered into the widened pick-first set.
    AcDbObjectIdArray m_aGatheredIds;
};

/// Keeps one record of type `T` for each open document. Records are made on first use and go with
/// their document; references stay valid until then.
template <typename T>
class AsdkDataManager : public AcApDocManagerReactor {
  public:
    ~AsdkDataManager() override { m_aRecords.clear(); }

    void documentToBeDestroyed(AcApDocument* document) override { m_aRecords.erase(document); }

    /// The record of `document`, made with its defaults when there is none.
    T& docData(AcApDocument* document) {
        const auto found = m_aRecords.lower_bound(document);
        if (found != m_aRecords.end() && found->first == document) return found->second;
        return m_aRecords.insert(found, typename Records::value_type(document, T()))->second;
    }
    /// The record of the current document.
    T& docData() { return docData(acDocManager->curDocument()); }

  private:
    typedef std::map<AcApDocument*, T> Records;
    Records m_aRecords;
};

/// The one manager, attached to the document manager between load and unload.
AsdkDataManager<CDocData>& documentDataManager();

/// The record of the current document. Look it up afresh at each use.
CDocData& docData();
