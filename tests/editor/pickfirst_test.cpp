// The pick-first set: gestures, notifications, and how modules read and set it.
#include "host/editor/selection/pickfirst.h"

#include "editor/editor_fixture.h"
#include "host/control/switches.h"

namespace tests {
namespace {

using Notifications = std::vector<std::wstring>;
const Notifications kOnce = {L"pickfirstModified"};
const Notifications kNever = {};

class Pickfirst : public EditorTest {
  protected:
    Pickfirst() {
        for (int i = 0; i < 5; ++i)
            add("0 POINT|10 " + std::to_string(i) + "|20 0");
    }
    std::vector<AcDbObjectId> ids(const std::string& which) const {
        std::vector<AcDbObjectId> chosen;
        for (char letter : which)
            chosen.push_back(entities[static_cast<std::size_t>(letter - 'a')]);
        return chosen;
    }
    /// The set and the notifications since the last look: "ab 1".
    std::string look() {
        return letters(host::pickfirst()) + " " + std::to_string(takeNotifications().size());
    }
    /// What acedSSGetFirst gives, everything released again.
    std::string getFirst() {
        resbuf *grips = nullptr, *picks = nullptr;
        if (acedSSGetFirst(&grips, &picks) != RTNORM) return "error";
        if (picks == nullptr) return "null";
        EXPECT_EQ(picks->restype, RTPICKS);
        const std::string text = members(picks->resval.rlname);
        acedSSFree(picks->resval.rlname);
        acutRelRb(picks);
        return text;
    }
    int setFirst(const std::string& which) {
        ads_name name = {0, 0}, entity;
        for (AcDbObjectId id : ids(which)) {
            acdbGetAdsName(entity, id);
            acedSSAdd(entity, name[1] == 0 ? nullptr : name, name);
        }
        const int result = acedSSSetFirst(name, nullptr);
        acedSSFree(name);
        return result;
    }

    Watcher watcher;
};

TEST_F(Pickfirst, ErasedEntitiesCannotBePicked) {
    erase(entities[1]);
    host::pick(ids("abc"));
    EXPECT_EQ(look(), "ac 1");
}

TEST_F(Pickfirst, ModulesReadACopy) {
    EXPECT_EQ(getFirst(), "error");
    host::switches().emptyPickfirstIsNorm = true;
    EXPECT_EQ(getFirst(), "null");
    host::pick(ids("cab"));
    EXPECT_EQ(getFirst(), "cab");
    EXPECT_EQ(getFirst(), "cab") << "outside commands reading does not clear";
    set(L"PICKFIRST", L"0");
    EXPECT_EQ(getFirst(), "null");
}

TEST_F(Pickfirst, ModulesSetItAndAreNotified) {
    EXPECT_EQ(setFirst("bd"), RTNORM);
    EXPECT_EQ(look(), "bd 1");
    EXPECT_EQ(setFirst("bd"), RTNORM);
    EXPECT_EQ(look(), "bd 1") << "also when nothing changes";
    const ads_name foreign = {5, 77};
    EXPECT_EQ(acedSSSetFirst(foreign, nullptr), RTERROR);
    EXPECT_EQ(look(), "bd 0");
    EXPECT_EQ(acedSSSetFirst(nullptr, nullptr), RTNORM);
    EXPECT_EQ(look(), " 1");
}

TEST_F(Pickfirst, EndlessHandlersAreStopped) {
    editor()->addReactor(&watcher);
    watcher.onPickfirst = [&] { setFirst("ab"); };
    for (bool inside : {true, false}) {
        host::switches().pickfirstNotifiedInside = inside;
        host::pick(ids(inside ? "a" : "c"));
        EXPECT_FALSE(takeFaults().empty());
    }
    editor()->removeReactor(&watcher);
}

TEST_F(Pickfirst, InputInANotificationIsAFault) {
    answers.left = {L"0,0"};
    editor()->addReactor(&watcher);
    int result = 0;
    ads_name name;
    watcher.onPickfirst = [&] { result = acedSSGet(L"", nullptr, nullptr, nullptr, name); };
    set(L"PICKFIRST", L"0");
    host::pick(ids("a"));
    EXPECT_EQ(result, RTERROR);
    EXPECT_EQ(takeFaults().size(), 1u);
    EXPECT_EQ(answers.left.size(), 1u);
    editor()->removeReactor(&watcher);
}

}  // namespace
}  // namespace tests
