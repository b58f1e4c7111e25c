#include "faults/Subjects.h"
#include "faults/World.h"

#include <algorithm>
#include <sstream>

namespace faults {
namespace {

constexpr const char* File = "User.db3";

/// Runs `body` in as many processes at once; whether all of them ended well.
bool InProcesses(int count, const std::function<int(int)>& body) {
    std::vector<pid_t> processes;
    for (int i = 0; i < count; ++i)
        processes.push_back(testsupport::StartChild([&] { return body(i); }));
    const auto endedWell = [](pid_t process) { return testsupport::WaitForChild(process) == 0; };
    return std::ranges::count_if(processes, endedWell) == count;
}

std::string Name(int process, int number) {
    return "P" + std::to_string(process) + "N" + std::to_string(number);
}

/// Adds a row; 1 when it is there, 0 when it is not.
int AddRow(SectionDBBase& object, int recordNumber, const std::string& name) {
    SECTIONINFO section = NewSection(name.c_str());
    return object.AddSectionData(static_cast<WORD>(recordNumber), &section);
}

constexpr int RowsOfEach = 50;
constexpr const char* CommonName = "COMMON";

/// Adds rows of its own, each until it is taken, and some of names that all processes add. Tells in
/// a file how often it was refused and which of the common names it has won.
int AddRows(World& world, int process) {
    world.Begin();
    SectionDBBase* object = AttachUserTables(File, "Wide Flange");
    int refused = 0;
    std::string won;
    for (int i = 0; i < RowsOfEach; ++i) {
        const int number = 1000 * (process + 1) + 2 * i;
        while (AddRow(*object, number, Name(process, i)) == 0)
            ++refused;
        const std::string common = CommonName + std::to_string(i);
        if (AddRow(*object, number + 1, common) == 1)
            won += common + " ";
    }
    testsupport::WriteFile(std::to_string(process), std::to_string(refused) + " " + won);
    return 0;
}

void Note(Progress& progress, bool isRight, const std::string& story) {
    progress.Note(isRight ? Verdict::Right : Verdict::Wrong, story);
}

/// Every row that was taken is there once; of each common name at most one was taken.
void AddTogether(const Originals& originals, int processes, Progress& progress) {
    World world(originals.folder + "/plain", "");
    const std::string who = std::to_string(processes) + " processes adding rows: ";
    Note(progress, InProcesses(processes, [&](int i) { return AddRows(world, i); }),
         who + "all end well");
    std::vector<std::string> expected;
    for (int process = 0; process < processes; ++process) {
        std::istringstream told(testsupport::ReadFile(std::to_string(process)));
        long refused = 0;
        told >> refused;
        progress.tally[static_cast<std::size_t>(Verdict::Told)] += refused;
        for (std::string name; told >> name;)
            expected.push_back(name);
        for (int i = 0; i < RowsOfEach; ++i)
            expected.push_back(Name(process, i));
    }
    std::istringstream content(RowsOf(File, "Wide Flange"));
    std::vector<std::string> names;
    for (std::string name, vessaName, area; content >> name >> vessaName >> area;)
        if (name != "MY") // the row of the world, whose name has a blank
            names.push_back(name);
        else
            content >> area;
    for (const std::string& name : expected)
        Note(progress, std::ranges::count(names, name) == 1,
             who + name + " is there " + std::to_string(std::ranges::count(names, name)) +
                 " times");
    Note(progress, names.size() == expected.size(), who + "no other row is there");
    progress.next = 1;
}

int RunProgram(const std::string& arguments) {
    return std::system((SECTIONDB_PROGRAM " " + arguments + " > /dev/null 2>&1").c_str());
}

// The family of general sections: their figures are free of each other.
constexpr const char* General = "General";
constexpr std::array Columns{"AX", "D", "B", "IZ", "IX", "IY", "ZZ", "ZY"};
constexpr int Updates = 10;

/// Each process changes a column of its own of the same row; no change is lost.
void UpdateTogether(const Originals& originals, int processes, Progress& progress) {
    World world(originals.folder + "/plain", "");
    RunProgram("user create Mine.db3");
    RunProgram(std::string("user add Mine.db3 ") + General +
               " MINE AX=50 D=100 B=100 IZ=400 IX=10 IY=400 SZ=80 SY=80 ZZ=100 ZY=100 AZ=10 AY=10");
    const auto column = [](int process) { return Columns[static_cast<std::size_t>(process)]; };
    const auto update = [&](int process) {
        const std::string command =
            std::string("user update Mine.db3 ") + General + " MINE " + column(process) + "=";
        for (int value = 1; value <= Updates; ++value) {
            int attempts = 100; // the file may be busy
            while (RunProgram(command + std::to_string(value)) != 0)
                if (--attempts == 0)
                    return 1;
        }
        return 0;
    };
    Note(progress, InProcesses(processes, update),
         std::to_string(processes) + " processes updating: all end well");
    for (int process = 0; process < processes; ++process) {
        const std::string sql = std::string("Select [") + column(process) + "] From " + General;
        openDatabase(&db, "Mine.db3", 1, 0, 1, "", nullptr);
        openRecordset(&db, &rows, sql.c_str(), 4, 0);
        const std::string value =
            rows == nullptr ? "unreadable" : Tell(rows->GetFieldValue(0).dblVal);
        closeRecordset(&rows);
        closeDatabase(&db, 1);
        Note(progress, value == std::to_string(Updates),
             std::to_string(processes) + " processes updating: " + column(process) + " is " +
                 value);
    }
    progress.next = 1;
}

} // namespace

std::vector<Job> SharingJobs(const Originals& originals) {
    std::vector<Job> jobs;
    const auto add = [&](const char* subject, auto trial) {
        constexpr unsigned LongestSeconds = 300; // many processes wait for each other
        jobs.push_back({subject, [=] { return RunIsolated(subject, trial, LongestSeconds); }});
    };
    for (const int processes : {2, 8}) {
        const char* subject =
            processes == 2 ? "two processes on one file" : "eight processes on one file";
        add(subject, [=, &originals](Progress& p) { AddTogether(originals, processes, p); });
        add(subject, [=, &originals](Progress& p) { UpdateTogether(originals, processes, p); });
    }
    return jobs;
}

} // namespace faults
