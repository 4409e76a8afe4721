// Which notifications change what the module remembers of a drawing, shown by what follows them.
#include "common/scene.h"
#include "gtest/gtest.h"
#include "host/editor/state/notify.h"

namespace {

using tests::Scene;

constexpr const wchar_t* kCopyGroup = L"COPY #1 #2 #3\n\n0,0 50,0\n\n";
constexpr const char* kTracked = "begin(1) line* end begin(1) line* end";
constexpr const char* kUntracked = "begin(1) line* end begin(1)? line* end?";

/// What a COPY of the first group becomes after the group was picked and `between` happened.
template <typename Between>
std::string copyAfter(Between between) {
    Scene scene("(line)");
    scene.click({2});
    between(scene);
    scene.after(kCopyGroup);
    return scene.order();
}

TEST(Tracking, OnlyAfterClipboardCommandsIsTheSelectionStillWidened) {
    EXPECT_EQ(copyAfter([](Scene&) {}), kTracked);
    EXPECT_EQ(copyAfter([](Scene& scene) { scene.run(L"COPYCLIP\n"); }), kTracked);
    EXPECT_EQ(copyAfter([](Scene&) { host::notifyCommandEnded(L"cutclip"); }), kTracked);
    EXPECT_EQ(copyAfter([](Scene&) { host::notifyCommandEnded(L"MIRROR"); }), kUntracked);
    EXPECT_EQ(copyAfter([](Scene& scene) { scene.run(L"SETVAR TEXTSIZE 3\n"); }), kUntracked);
    EXPECT_EQ(copyAfter([](Scene&) { host::notifyCommandEnded(L"PASTECLIP"); }), kUntracked);
    EXPECT_EQ(copyAfter([](Scene& scene) { scene.saveAndReopen(); }), kUntracked);
    // Only a command that ends forgets.
    EXPECT_EQ(copyAfter([](Scene&) { host::notifyCommandCancelled(L"COPY"); }), kTracked);
    EXPECT_EQ(copyAfter([](Scene&) { host::notifyCommandFailed(L"COPY"); }), kTracked);
}

TEST(Tracking, OnlyACopyOfAWidenedSelectionFillsTheClipboardWithGroups) {
    Scene scene("(line)");
    scene.run(L"VelmoGROUPNOTACTIVE\n");
    scene.after(L"COPYCLIP #1 #2 #3\n\n");
    scene.after(L"PASTECLIP 50,0\n");
    EXPECT_EQ(scene.order(), kUntracked);
    scene.run(L"VelmoGROUPACTIVE\nREGEN\n");
    ASSERT_EQ(scene.order(), kTracked);
    scene.click({2});
    scene.after(L"CUTCLIP\n");
    scene.after(L"UNDO 1\n");  // the clipboard stays, and so does what the module knows of it
    scene.after(L"PASTECLIP 90,0\n");
    EXPECT_EQ(scene.order(), std::string(kTracked) + " begin(1) line* end");
}

/// Positions picked after a circle joins a picked group of one line, which is at 1 to 3.
template <typename Before>
std::string pickedAfter(Before before) {
    Scene scene("(line) circle");
    scene.click({2});
    before();
    scene.click({4});
    return scene.picked();
}

TEST(Tracking, WhatWasGatheredIsForgottenByACancelledCopyclipOnly) {
    EXPECT_EQ(pickedAfter([] {}), "1 2 3 4");
    // With nothing remembered, the line counts as picked anew and comes behind the circle.
    EXPECT_EQ(pickedAfter([] { host::notifyCommandCancelled(L"CopyClip"); }), "1 3 4 2");
    for (const wchar_t* name : {L"CUTCLIP", L"COPY", L"MIRROR", L"PASTECLIP"}) {
        EXPECT_EQ(pickedAfter([name] { host::notifyCommandCancelled(name); }), "1 2 3 4");
    }
    EXPECT_EQ(pickedAfter([] { host::notifyCommandFailed(L"COPYCLIP"); }), "1 2 3 4");
    EXPECT_EQ(pickedAfter([] { host::notifyCommandEnded(L"COPY"); }), "1 3 4 2");
}

TEST(Tracking, TheChangeOfSelectionByAClipboardCommandIsIgnored) {
    for (const wchar_t* name : {L"COPYCLIP", L"cutclip"}) {
        Scene scene("(line) (circle)");
        scene.click({2});
        host::notifyCommandWillStart(name);
        scene.click({5});
        EXPECT_EQ(scene.picked(), "1 2 3 5") << "the next change is not looked at";
        host::notifyCommandWillStart(name);
        host::notifyCommandEnded(L"MIRROR");
        scene.click({6});
        // By position over the changing list: 2, 5, 2 and 5 once more come to its end.
        EXPECT_EQ(scene.picked(), "1 3 6 4 2 5") << "that after a mirrored selection is";
    }
}

}  // namespace
