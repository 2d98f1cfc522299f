#include "platform/text/SettingsStore.h"
#include "tests/text/TempFolder.h"

namespace {

void checkContract(tv::SettingsStore& store) {
    EXPECT_FALSE(store.getString(L"IDD_A", L"Width"));
    store.setInt(L"IDD_A", L"Width", -600);
    store.setString(L"IDD_A", L"Name", L"  \"도면\"; # = [x]\\n\n둘째 \t");
    store.setString(L"IDD_B", L"Width", L"");
    store.setString(L"a=[b];\n", L" #=k%", L"odd");
    EXPECT_EQ(store.getInt(L"IDD_A", L"Width"), -600);
    EXPECT_FALSE(store.getInt(L"IDD_A", L"width"));
    EXPECT_FALSE(store.getInt(L"IDD_A", L"Name"));
    store.setString(L"IDD_A", L"Big", L"2147483648");
    EXPECT_FALSE(store.getInt(L"IDD_A", L"Big"));
    store.erase(L"IDD_A", L"Big");
    EXPECT_FALSE(store.getString(L"IDD_A", L"Big"));
    store.setString(L"IDD_C", L"x", L"1");
    store.eraseSection(L"IDD_C");
    EXPECT_FALSE(store.getString(L"IDD_C", L"x"));
    EXPECT_FALSE(store.flush());
    EXPECT_EQ(store.getString(L"IDD_A", L"Name"), L"  \"도면\"; # = [x]\\n\n둘째 \t");
    EXPECT_EQ(store.getString(L"IDD_B", L"Width"), L"");
    EXPECT_EQ(store.getString(L"a=[b];\n", L" #=k%"), L"odd");
}

TEST(Settings, BothStoresKeepWhatTheyAreGiven) {
    tv::MemorySettingsStore memory;
    checkContract(memory);
    TempFolder folder;
    const auto file = folder.path / "made" / "on the way" / "settings.ini";
    {
        tv::FileSettingsStore store(file);
        EXPECT_FALSE(store.problem());
        checkContract(store);
    }
    tv::FileSettingsStore again(file);
    EXPECT_EQ(again.getString(L"IDD_A", L"Name"), L"  \"도면\"; # = [x]\\n\n둘째 \t");
    EXPECT_EQ(again.getInt(L"IDD_A", L"Width"), -600);
    EXPECT_EQ(again.getString(L"IDD_B", L"Width"), L"");
    EXPECT_EQ(again.getString(L"a=[b];\n", L" #=k%"), L"odd");
    EXPECT_FALSE(again.getString(L"IDD_C", L"x"));
}

TEST(Settings, WhatOthersWroteStays) {
    TempFolder folder;
    const auto file =
        folder.write("s.ini", "; kept\n[Hand]\n; about a\na = by hand\nlonely line\n\n[Other]\nb=2\n");
    tv::FileSettingsStore store(file);
    EXPECT_EQ(store.getString(L"Hand", L"a"), L"by hand");
    EXPECT_EQ(store.getInt(L"Other", L"b"), 2);
    const auto before = std::filesystem::last_write_time(file);
    EXPECT_FALSE(store.flush());
    EXPECT_EQ(std::filesystem::last_write_time(file), before);
    store.setInt(L"Other", L"c", 3);
    ASSERT_FALSE(store.flush());
    for (const char* kept : {"; kept", "; about a", "by hand", "lonely line"})
        EXPECT_NE(folder.read("s.ini").find(kept), std::string::npos) << kept;
}

TEST(Settings, UnreadableFilesAreNotWrittenOver) {
    TempFolder folder;
    const auto file = folder.write("s.ini", "[a]\nb=1\nc=\xFF\n");
    tv::FileSettingsStore store(file);
    EXPECT_EQ(store.problem().status, Tavo::eBadFile);
    EXPECT_EQ(store.problem().line, 3);
    store.setInt(L"a", L"b", 2);
    EXPECT_EQ(store.getInt(L"a", L"b"), 2);
    EXPECT_EQ(store.flush().status, Tavo::eBadFile);
    EXPECT_EQ(folder.read("s.ini"), "[a]\nb=1\nc=\xFF\n");

    tv::FileSettingsStore nowhere(folder.path / "s.ini" / "below a file");
    nowhere.setInt(L"a", L"b", 1);
    EXPECT_TRUE(nowhere.flush());
}

} // namespace
