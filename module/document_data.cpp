// Makes and finds the per-document records.
#include "document_data.h"

#include "grouping_mode.h"
#include "object_ids.h"

namespace {

// Built when the library is loaded, freed when it is unloaded: records of drawings that are still
// open live until then.
AsdkDataManager<CDocData> G_documentData;

}  // namespace

CDocData::CDocData()
    : m_bReportGathering(false),
      m_bActive(true),
      m_bReactToPickfirst(true),
      m_bSelectionHasGroups(false),
      m_bClipboardHasGroups(false),
      m_aGatheredIds(0, kIdListGrowth) {
    showGroupingOn();
}

AsdkDataManager<CDocData>& documentDataManager() { return G_documentData; }

CDocData& docData() { return G_documentData.docData(); }
