// Settings files: what a line means, what a write keeps, and what survives kills and full disks.
#include "TestSupport.h"

#include "platform/PrivateProfile.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace testsupport;

namespace {

std::string Value(const std::string& file, const char* section, const char* key) {
    std::array<char, 256> buffer{};
    GetPrivateProfileStringA(section, key, "-", buffer.data(), buffer.size(), file.c_str());
    return buffer.data();
}

int Write(const std::string& file, const char* section, const char* key, const char* value) {
    return WritePrivateProfileStringA(section, key, value, file.c_str());
}

timespec Now() {
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    return now;
}

void SetTime(const std::string& file, timespec time) {
    const timespec accessAndChange[] = {time, time};
    ::utimensat(AT_FDCWD, file.c_str(), accessAndChange, 0);
}

} // namespace

TEST(Profile, ReadsWhatALineMeans) {
    const TempFolder folder;
    const std::string file = folder.File("a.ini");
    WriteFile(file, "\xEF\xBB\xBForphan=1\r\n"
                    "[ Flags ] ; remark\r\n"
                    "; k=comment\n# k=comment\n"
                    "  K \t=  \"  quoted=;x  \"  \r\n"
                    "k=later\n"
                    "HSS Round A1085 = 12,15\n"
                    "Negative=-3x\nHuge=99999999999999999999\nHex=x1\nPlus=+42,7\nEmpty=\n"
                    "no entry\n=nameless\n[broken\n"
                    "single='it''s'\nlone=\"\n"
                    "[other]\nk=2\n"
                    "[FLAGS]\nonlyhere=1\n"
                    "[]\nk=unnamed\n[last]\nk=end");
    const struct {
        const char* section;
        const char* key;
        const char* value;
    } cases[] = {
        {"flags", "k", "  quoted=;x  "},
        {"FLAGS", " hss round a1085 ", "12,15"},
        {"flags", "empty", ""},
        {"flags", "single", "it''s"},
        {"flags", "lone", "\""},
        {"flags", "onlyhere", "-"},
        {"flags", "orphan", "-"},
        {"", "k", "unnamed"},
        {"", "orphan", "-"},
        {"flags", "", "-"},
        {"flags", "; k", "-"},
        {"other", "K", "2"},
        {"last", "k", "end"},
        {"none", "k", "-"},
        {nullptr, "k", "-"},
        {"flags", nullptr, "-"},
    };
    for (const auto& [section, key, value] : cases)
        EXPECT_EQ(Value(file, section, key), value)
            << (section == nullptr ? "null" : section) << "/" << (key == nullptr ? "null" : key);
    const auto integer = [&](const char* key) {
        return GetPrivateProfileIntA("flags", key, -9, file.c_str());
    };
    EXPECT_EQ(integer("negative"), static_cast<unsigned>(-3));
    EXPECT_EQ(integer("huge"), 0U);
    EXPECT_EQ(integer("hex"), 0U);
    EXPECT_EQ(integer("plus"), 42U);
    EXPECT_EQ(integer("missing"), static_cast<unsigned>(-9));
}

TEST(Profile, AValueIsCutToItsBuffer) {
    const TempFolder folder;
    const std::string file = folder.File("a.dbi");
    const std::string value(9000, '7');
    ASSERT_EQ(Write(file, "s", "k", value.c_str()), 1);
    for (const DWORD size : {DWORD{1}, DWORD{256}, DWORD{8750}, DWORD{9001}, DWORD{9500}}) {
        std::string buffer(size + 1, '#');
        const DWORD count =
            GetPrivateProfileStringA("s", "k", "", buffer.data(), size, file.c_str());
        EXPECT_EQ(count, std::min<std::size_t>(size - 1, value.size()));
        EXPECT_EQ(std::string_view(buffer.c_str()), value.substr(0, count));
        EXPECT_EQ(buffer.back(), '#');
    }
    EXPECT_EQ(GetPrivateProfileStringA("s", "k", "", nullptr, 0, file.c_str()), 0U);
}

TEST(Profile, AWriteKeepsAllElse) {
    const TempFolder folder;
    const std::string file = folder.File("a.ini");
    const std::string crlf =
        "; top\r\n\r\n[A]\r\n Key =  \"v\"  \r\nnote\r\n; tail\r\n\r\n[B]\r\nk=1";
    const struct {
        std::string before;
        ProfileEntry entry;
        std::string after;
    } cases[] = {
        {crlf,
         {"a", "KEY", "new"},
         "; top\r\n\r\n[A]\r\n Key =  new\r\nnote\r\n; tail\r\n\r\n[B]\r\nk=1"},
        {crlf,
         {"a", "n", "2"},
         "; top\r\n\r\n[A]\r\n Key =  \"v\"  \r\nn=2\r\nnote\r\n; tail\r\n\r\n[B]\r\nk=1"},
        {crlf, {"B", "n", "2"}, crlf + "\r\nn=2"},
        {crlf, {"C", "n", "2"}, crlf + "\r\n[C]\r\nn=2\r\n"},
        {crlf, {"A", "key", nullptr}, "; top\r\n\r\n[A]\r\nnote\r\n; tail\r\n\r\n[B]\r\nk=1"},
        {crlf, {"A", nullptr, nullptr}, "; top\r\n\r\nnote\r\n; tail\r\n\r\n[B]\r\nk=1"},
        {crlf, {"A", "none", nullptr}, crlf},
        {"[a]\nk=1\nk=2\n[A]\nk=3\n", {"A", "k", "x"}, "[a]\nk=x\nk=2\n[A]\nk=3\n"},
        {"[a]\nk=1\nk=2\n[A]\nk=3\n", {"A", "k", nullptr}, "[a]\n[A]\nk=3\n"},
        {"[a]\nk=1\n[b]\n[A]\nk=3\n", {"A", nullptr, nullptr}, "[b]\n"},
        {"k=1\n", {"a", "k", "2"}, "k=1\n[a]\nk=2\n"},
        {"", {"a", "k", ""}, "[a]\nk=\n"},
        {std::string("\0\xFF=\0\n[a]", 8),
         {"a", "k", "1"},
         std::string("\0\xFF=\0\n[a]", 8) + "\nk=1"},
    };
    for (const auto& [before, entry, after] : cases) {
        WriteFile(file, before);
        EXPECT_EQ(Write(file, entry.section, entry.key, entry.value), 1);
        EXPECT_EQ(ReadFile(file), after);
        EXPECT_EQ(Value(file, entry.section, entry.key), entry.value ? entry.value : "-");
    }
    EXPECT_EQ(folder.Count(), 1);
}

TEST(Profile, SeveralEntriesAreWrittenInTheirOrder) {
    const TempFolder folder;
    const std::string file = folder.File("a.ini");
    WriteFile(file, "[a]\nold=1\n");
    const ProfileEntry entries[] = {{"b", "k", "lost"}, {"a", nullptr, nullptr},
                                    {"A", "n", "1"},    {"b", "K", "2"},
                                    {"a", "m", "3"},    {"c", "k", nullptr}};
    EXPECT_EQ(WritePrivateProfileEntries(entries, file.c_str()), 1);
    EXPECT_EQ(ReadFile(file), "[b]\nk=2\n[a]\nn=1\nm=3\n");
}

TEST(Profile, AFileIsCreatedOnlyWhereThereIsNone) {
    const TempFolder folder;
    const std::string file = folder.File("a.ini");
    const ProfileEntry entry{"a", "k", "1"};
    EXPECT_EQ(CreatePrivateProfile({}, file.c_str()), 1);
    EXPECT_EQ(ReadFile(file), "");
    EXPECT_EQ(CreatePrivateProfile({&entry, 1}, file.c_str()), 1);
    EXPECT_EQ(ReadFile(file), "");
    std::filesystem::remove(file);
    EXPECT_EQ(CreatePrivateProfile({&entry, 1}, file.c_str()), 1);
    EXPECT_EQ(ReadFile(file), "[a]\nk=1\n");
    EXPECT_EQ(CreatePrivateProfile({&entry, 1}, folder.File("none/a.ini").c_str()), 0);
    EXPECT_EQ(GetLastProfileError(), 2);
}

TEST(Profile, WhatCouldNotBeReadBackIsRefused) {
    const TempFolder folder;
    const std::string file = folder.File("a.ini");
    WriteFile(file, "[a]\nk=1\n");
    const ProfileEntry entries[] = {
        {"a]b", "k", "1"}, {"a\n[b]", "k", "1"},    {"a", "k=l", "1"}, {"a", "", "1"},
        {"a", ";k", "1"},  {"a", "k", "1\n[b]"},    {"a", "[k]", "1"}, {nullptr, "k", "1"},
        {"a", "#", "1"},   {"a", "x\n[b]\nk", "1"},
    };
    for (const ProfileEntry& entry : entries) {
        const ProfileEntry batch[] = {{"a", "k", "changed"}, entry};
        EXPECT_EQ(WritePrivateProfileEntries(batch, file.c_str()), 0);
        EXPECT_EQ(GetLastProfileError(), EINVAL);
    }
    EXPECT_EQ(ReadFile(file), "[a]\nk=1\n");
}

TEST(Profile, ErrorsAreTold) {
    const TempFolder folder;
    const std::string file = folder.File("a.ini");
    EXPECT_EQ(Value(file, "a", "k"), "-");
    EXPECT_EQ(GetLastProfileError(), 2);
    EXPECT_EQ(Write(file, "a", "k", "1"), 1);
    EXPECT_EQ(GetLastProfileError(), 0);
    EXPECT_EQ(Value(file, "a", "none"), "-");
    EXPECT_EQ(GetLastProfileError(), 0);
    EXPECT_EQ(GetPrivateProfileIntA("a", "k", 5, nullptr), 5U);
    EXPECT_EQ(GetLastProfileError(), 2);
    EXPECT_EQ(Write(folder.File("none/a.ini"), "a", "k", "1"), 0);
    EXPECT_EQ(GetLastProfileError(), 2);
    EXPECT_EQ(Value(folder.Path(), "a", "k"), "-");
    EXPECT_EQ(GetLastProfileError(), EISDIR);
    ASSERT_EQ(::mkfifo(folder.File("pipe").c_str(), 0666), 0);
    EXPECT_EQ(Value(folder.File("pipe"), "a", "k"), "-");
    EXPECT_EQ(GetLastProfileError(), EINVAL);
    EXPECT_EQ(Write(folder.File("pipe"), "a", "k", "1"), 0);
}

TEST(Profile, AHugeFileIsRefused) {
    const TempFolder folder;
    const std::string file = folder.File("huge.ini");
    WriteFile(file, "[a]\nk=1\n");
    std::filesystem::resize_file(file, 100'000'000);
    EXPECT_EQ(Value(file, "a", "k"), "-");
    EXPECT_EQ(GetLastProfileError(), EFBIG);
    EXPECT_EQ(Write(file, "a", "k", "1"), 0);
    std::filesystem::resize_file(file, 16'000'000);
    EXPECT_EQ(Value(file, "a", "k"), "1");
    EXPECT_EQ(Write(file, "b", "k", "2"), 1);
    EXPECT_EQ(Value(file, "b", "k"), "2");
}

TEST(Profile, AChangedFileIsReadAgain) {
    const TempFolder folder;
    const std::string file = folder.File("a.ini");
    const struct {
        const char* what;
        std::string value;
        time_t time;
        bool moved;
    } states[] = {
        {"first", "1", 1000, false},
        {"time", "2", 1001, false},
        {"size", "33", 1001, false},
        {"identity", "44", 1001, true},
    };
    for (const auto& [what, value, time, moved] : states) {
        const std::string written = moved ? folder.File("new.ini") : file;
        WriteFile(written, "[a]\nk=" + value + "\n");
        SetTime(written, {time, 0});
        std::filesystem::rename(written, file);
        EXPECT_EQ(Value(file, "a", "k"), value) << what;
    }
    std::filesystem::remove(file);
    EXPECT_EQ(Value(file, "a", "k"), "-");
}

// Same file, same length and, as on coarse clocks, the same time stamp.
TEST(Profile, AChangeWithinOneClockTickIsSeen) {
    const TempFolder folder;
    const std::string file = folder.File("a.ini");
    for (int i = 100; i < 150; ++i) {
        const timespec tick = Now();
        WriteFile(file, "[a]\nk=old\n");
        SetTime(file, tick);
        EXPECT_EQ(Value(file, "a", "k"), "old");
        const timespec read = Now();
        WriteFile(file, "[a]\nk=" + std::to_string(i) + "\n");
        SetTime(file, tick);
        const bool withinTick =
            read.tv_sec == tick.tv_sec && read.tv_nsec - tick.tv_nsec < 10'000'000;
        if (withinTick) {
            EXPECT_EQ(Value(file, "a", "k"), std::to_string(i));
        }
    }
}

TEST(Profile, AKilledWriterLeavesTheOldOrTheNewFile) {
    const TempFolder folder;
    const std::string file = folder.File("a.ini");
    const std::string values[] = {std::string(300'000, 'a'), std::string(400'000, 'b')};
    ASSERT_EQ(Write(file, "s", "k", values[0].c_str()), 1);
    for (useconds_t round = 0; round < 60; ++round) {
        const pid_t writer = StartChild([&] {
            for (std::size_t i = 0;; ++i)
                if (Write(file, "s", "k", values[i % 2].c_str()) != 1)
                    return 1;
        });
        ::usleep(500 + 137 * round);
        ::kill(writer, SIGKILL);
        ASSERT_EQ(WaitForChild(writer), 128 + SIGKILL);
        const std::string text = ReadFile(file);
        ASSERT_TRUE(text == "[s]\nk=" + values[0] + "\n" || text == "[s]\nk=" + values[1] + "\n")
            << "round " << round << ": " << text.size() << " bytes";
    }
    EXPECT_EQ(Write(file, "s", "k", "a killed writer holds no lock"), 1);
}

TEST(Profile, TwoWritersLoseNothing) {
    constexpr int Count = 60;
    const TempFolder folder;
    const std::string file = folder.File("a.ini");
    const auto key = [](char writer, int i) { return writer + std::to_string(i); };
    const auto write = [&](char writer) {
        return StartChild([&, writer] {
            int written = 0;
            for (int i = 0; i < Count; ++i)
                written += Write(file, "s", key(writer, i).c_str(), "1");
            return written == Count ? 0 : 1;
        });
    };
    const pid_t first = write('a');
    const pid_t second = write('b');
    EXPECT_EQ(WaitForChild(first), 0);
    EXPECT_EQ(WaitForChild(second), 0);
    for (int i = 0; i < Count; ++i)
        EXPECT_EQ(Value(file, "s", key('a', i).c_str()) + Value(file, "s", key('b', i).c_str()),
                  "11");
    EXPECT_EQ(folder.Count(), 1);
}

TEST(Profile, AReadOnlyFolderChangesNothing) {
    const TempFolder folder;
    const std::string file = folder.File("a.ini");
    WriteFile(file, "[a]\nk=1\n");
    ::chmod(file.c_str(), 0666);
    ::chmod(folder.Path().c_str(), 0555);
    EXPECT_EQ(RunInChild([&] {
                  const bool failed = BecomeOrdinaryUser() && Write(file, "a", "k", "2") == 0;
                  return failed ? GetLastProfileError() : 0;
              }),
              EACCES);
    ::chmod(folder.Path().c_str(), 0755);
    EXPECT_EQ(ReadFile(file), "[a]\nk=1\n");
}

TEST(Profile, AFullDiskChangesNothing) {
    const TempFolder folder;
    const std::string file = folder.File("a.ini");
    const std::string text = "[a]\nk=" + std::string(20'000, 'o') + "\n";
    const int error = RunInChild([&] {
        LimitDisk(folder.Path(), 65'536);
        WriteFile(file, text);
        const std::string value(100'000, 'n');
        const bool failed = Write(file, "a", "k", value.c_str()) == 0;
        const int reported = GetLastProfileError();
        return failed && ReadFile(file) == text && folder.Count() == 1 ? reported : 0;
    });
    EXPECT_TRUE(error == ENOSPC || error == EFBIG) << error;
}
