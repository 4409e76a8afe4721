// Attaching, detaching and accounting of editor reactors.
#include "editor/editor_fixture.h"
#include "host/editor/state/notify.h"

namespace tests {
namespace {

class Reactors : public EditorTest {
  protected:
    int called = 0;
};

TEST_F(Reactors, DeletedWhileAttachedIsAFault) {
    auto watcher = std::make_unique<Watcher>();
    editor()->addReactor(watcher.get());
    watcher.reset();
    EXPECT_EQ(takeFaults().size(), 1u);
    EXPECT_EQ(host::editorReactors().count(), 0);
    host::notifyPickfirstModified();
}

TEST_F(Reactors, EachIsCalledOnceAndADetachedOneNotAnyMore) {
    Watcher first, second;
    first.onPickfirst = [&] {
        ++called;
        editor()->removeReactor(&second);
    };
    second.onPickfirst = [&] { called += 100; };
    for (AcEditorReactor* each : std::vector<AcEditorReactor*>{&first, &first, nullptr, &second})
        editor()->addReactor(each);
    EXPECT_EQ(host::editorReactors().count(), 2);
    host::notifyPickfirstModified();
    EXPECT_EQ(called, 1);
    editor()->removeReactor(&first);
    editor()->removeReactor(&first);
    EXPECT_EQ(host::editorReactors().count(), 0);
}

TEST_F(Reactors, LeaksAndExceptionsAreNamed) {
    Watcher watcher;
    editor()->addReactor(&watcher);
    ads_name set;
    watcher.onStart = [&](const std::wstring&) { acedSSAdd(nullptr, nullptr, set); };
    host::notifyCommandWillStart(L"COPY");
    std::vector<std::string> faults = takeFaults();
    ASSERT_EQ(faults.size(), 1u);
    EXPECT_EQ(faults[0].find("after commandWillStart COPY: 1 selection set"), 0u) << faults[0];
    acedSSFree(set);
    watcher.onStart = [](const std::wstring&) { throw 1; };
    host::notifyCommandWillStart(L"COPY");
    faults = takeFaults();
    ASSERT_EQ(faults.size(), 1u);
    EXPECT_EQ(faults[0], "commandWillStart COPY: an exception left the module");
    editor()->removeReactor(&watcher);
}

}  // namespace
}  // namespace tests
