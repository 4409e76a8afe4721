// Runs scenarios with failing calls and looks at what each run left behind.
#include "every_fault.h"

#include "common/checks.h"
#include "common/drawing_order.h"
#include "common/scratch.h"
#include "common/seeds.h"
#include "host/control/faults.h"
#include "host/control/windows_setup.h"
#include "host/editor/selection/selection_sets.h"
#include "host/objectarx/database.h"
#include "host/objectarx/documents.h"

namespace tests {

namespace {

#if defined(_WIN32)
constexpr long kStride = 25;
#elif defined(__SANITIZE_ADDRESS__)
constexpr long kStride = 7;
#else
constexpr long kStride = 1;
#endif

#ifdef _WIN32
constexpr bool kWithReports = false;  // each would be a real window
#else
constexpr bool kWithReports = true;
#endif

constexpr const wchar_t* kPointPrompt = L"\nPick insertion point for group markers: ";

/// Forming goes on when a marker block could not be made: the last entity, which may be the user's,
/// then stands in for the marker and is rewritten if it is a block reference.
constexpr const wchar_t* kNoBlock = L"\nBlock definition ";

/// The user's own entities of model space with their attributes, by content.
Census contentsOf(const Drafting& drafting) {
    const host::Store& store = drafting.store();
    const std::vector<std::string> words = wordsOf(drafting);
    auto word = words.begin();
    Census census;
    for (const host::ObjectBody& entity : store.children(store.modelSpace())) {
        if (isMarker(*word++)) continue;
        std::string content = contentOf(entity);
        for (const host::ObjectBody& part : store.children(entity.self))
            content += contentOf(part);
        ++census[content];
    }
    return census;
}

/// What of `before` is missing in `now`.
std::string lost(const Census& before, const Census& now) {
    std::string text;
    for (const auto& [entity, count] : before) {
        const auto left = now.find(entity);
        const int there = left != now.end() ? left->second : 0;
        if (there < count) text += entity + "; ";
    }
    return text;
}

/// The first group that repair has neither brought in line nor dissolved. An end marker alone holds
/// no group; it stays for as long as the handle that it names is that of some object.
std::string unsettledGroup(const Drafting& drafting) {
    std::vector<std::string> groups;
    bool open = false;
    for (const std::string& word : wordsOf(drafting)) {
        const bool alone = !open && word == "end?";
        if (isMarker(word)) open = word[0] == 'b';
        if (!alone) groups.push_back(word);
    }
    return unsoundGroup(groups);
}

/// One run.
class Trial {
  public:
    Trial(const FaultScenario& scenario, const std::string& drawing)
        : m_scenario(scenario), m_scene("", {}, scenario.menuGroup) {
        EXPECT_TRUE(m_scene.session().openDrawing(drawing));
        session().activate(*session().documents.at(0));
        session().closeDrawing();  // the empty one
        m_document = acDocManager->curDocument();
        if (scenario.before) scenario.before(m_scene);
        m_types = censusOf(m_scene);
        m_contents = contentsOf(m_scene);
    }

    /// Calls that the scenario made, with the plan's failing.
    long run(const host::FaultPlan& plan) {
        host::clearEffects();
        host::setFaultPlan(plan);
        m_scenario.act(m_scene);
        m_hit = host::faultsInjected() > 0;
        m_failed = host::failedCalls();
        const long calls = host::faultCallCount();
        host::setFaultPlan({});
        m_printed = host::effectText(host::EffectKind::CommandLine);
        return calls;
    }
    bool hit() const { return m_hit; }
    const std::set<std::string, std::less<>>& failed() const { return m_failed; }

    void expectNothingLost() {
        expectNothingHeld();
        expectSound("behind the fault: ");
        if (m_scenario.after) m_scenario.after(m_scene);
        const std::vector<host::HostDocument*> open = session().documents.all();
        for (host::HostDocument* document : open) {
            session().activate(*document);
            expectRepaired(document);
        }
        expectSound("behind the repair: ");
    }

  private:
    /// A set stays when the call that frees it fails and, by design, when the point prompt of
    /// VelmoGROUPMAKE is cancelled. A reactor that cannot find the editor cannot leave it. Nothing
    /// else may stay.
    bool mayStay(const std::string& fault) const {
        if (fault == "an editor reactor was deleted while it was attached")
            return m_failed.count("AcRxDictionary::at") != 0;
        if (fault.find("selection set(s) not freed") == fault.npos) return false;
        return m_failed.count("acedSSFree") != 0 || m_failed.count("acedGetPoint") != 0 ||
               printed(kPointPrompt);
    }

    /// Whether the module printed a text that holds this one while calls failed.
    bool printed(const wchar_t* text) const { return m_printed.find(text) != m_printed.npos; }

    void expectNothingHeld() {
        for (const std::string& fault : takeFaults()) {
            EXPECT_TRUE(mayStay(fault)) << fault;
            host::resetSelectionSets();
            host::clearModuleFaults();
        }
    }

    void expectSound(const std::string& when) {
        for (host::HostDocument* document : session().documents.all())
            if (document == m_document) session().activate(*document);
        EXPECT_EQ(lost(m_types, censusOf(m_scene)), "") << when << m_scene.order();
        if (!m_scenario.moves && !printed(kNoBlock)) {
            EXPECT_EQ(lost(m_contents, contentsOf(m_scene)), "") << when;
        }
        for (std::size_t i = 0; i < session().documents.count(); ++i) {
            EXPECT_EQ(errorsIn(session().documents.at(i)->database()->store()), "") << when;
        }
    }

    /// A marker whose partner was erased in the session goes when the drawing was loaded again.
    void expectRepaired(AcApDocument* document) {
        const std::string before = m_scene.order();
        m_scene.run(L"REGEN\n");
        if (unsoundGroup(m_scene).empty()) return;
        const std::string between = m_scene.order();
        m_scene.saveAndReopen();
        if (document == m_document) m_document = acDocManager->curDocument();
        m_scene.run(L"REGEN\n");
        if (printed(kNoBlock)) return;
        EXPECT_EQ(unsettledGroup(m_scene), "")
            << before << " | " << between << " | " << m_scene.order();
    }

    host::Session& session() { return m_scene.session(); }

    const FaultScenario& m_scenario;
    Scene m_scene;
    AcApDocument* m_document;  ///< the one whose entities are counted
    Census m_types;
    Census m_contents;
    bool m_hit = false;
    std::wstring m_printed;
    std::set<std::string, std::less<>> m_failed;
};

/// The scenario's drawing as a file.
std::string preparedDrawing(const FaultScenario& scenario, const ScratchFolder& folder) {
    if (!scenario.file.empty()) return scenario.file;
    Scene scene(scenario.words);
    const std::string file = folder.file("prepared.dxf");
    const host::Outcome saved = scene.session().saveDrawing(file);
    EXPECT_TRUE(saved) << saved.error;
    return file;
}

/// Lets call after call fail, from `first` on, until there is none left; the number of runs.
long failFrom(long first, const FaultScenario& scenario, const std::string& drawing,
              bool andAllLater, bool reports) {
    long runs = 0;
    for (long failAt = first;; failAt += kStride) {
        host::resetWindows();
        if (reports) host::setRegistryDword(host::moduleRegistryKey(), L"AssertStartup", 1);
        Trial trial(scenario, drawing);
        trial.run({failAt, andAllLater, ""});
        if (!trial.hit()) return runs;
        std::string where =
            "call " + std::to_string(failAt) + (andAllLater ? " and all later" : "") + " failed:";
        if (!andAllLater)
            for (const std::string& call : trial.failed())
                where += " " + call;
        SCOPED_TRACE(where + (reports ? ", with reports" : ""));
        trial.expectNothingLost();
        ++runs;
    }
}

}  // namespace

void failEveryCall(const FaultScenario& scenario) {
    const ScratchFolder folder;
    const std::string drawing = preparedDrawing(scenario, folder);
    long calls = 0;
    {
        Trial trial(scenario, drawing);
        calls = trial.run({});
        trial.expectNothingLost();
    }
    long runs = 0;
    const unsigned seed = wantedSeed().value_or(1);
    const long first = 1 + seed % std::min(kStride, calls);
    for (const bool reports : {false, true}) {
        if (reports && !kWithReports) continue;
        for (const bool andAllLater : {false, true})
            runs += failFrom(first, scenario, drawing, andAllLater, reports);
    }
    host::resetWindows();
    EXPECT_GE(runs * kStride, calls) << "VELMO_SEED=" << seed;
}

}  // namespace tests
