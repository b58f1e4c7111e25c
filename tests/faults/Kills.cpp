#include "faults/CallTrial.h"
#include "faults/Subjects.h"

#include "files/CatalogueBuilder.h"
#include "interface/SectionDBInterface.h"

#include <algorithm>
#include <csignal>
#include <random>

using Facade = SectionDBInterface;

namespace faults {
namespace {

/// What a child tells, as text.
template <class Body>
std::string ToldByChild(Body body) {
    constexpr const char* File = "told.txt";
    testsupport::WriteFile(File, "nothing");
    const int status = testsupport::RunInChild([&] {
        testsupport::WriteFile(File, body());
        return 0;
    });
    return status == 0 ? testsupport::ReadFile(File) : "status " + std::to_string(status);
}

// At every system call of a call that writes: the file holds the old content or the new one.

std::string LeftIn(const std::string& answer) {
    const std::size_t arrow = answer.find(" -> ");
    return arrow == std::string::npos ? "" : answer.substr(arrow + 4);
}

/// A file that is being created is of no use until the call returns.
bool IsOldOrNew(const PublicCall& call, const std::string& left) {
    if (left == LeftIn(call.right) || left == "unfinished")
        return true;
    return std::ranges::any_of(call.failed,
                               [&](const std::string& failed) { return left == LeftIn(failed); });
}

void KillInCall(const PublicCall& call, const Originals& originals, Progress& progress) {
    World world(originals.folder + "/plain", "");
    const std::string counted = ToldByChild([&] {
        CallTrial trial(call, world);
        long events = 0;
        trial.Make({"", [] { Expect({Failure::Death}); }, [&] { events = Events(); }});
        return std::to_string(events);
    });
    while (progress.next < std::atol(counted.c_str())) {
        const long at = progress.next + 1;
        const int status = testsupport::RunInChild([&] {
            CallTrial(call, world).Make({"", [&] { Expect({Failure::Death, at}); }, [] {}});
            return 0;
        });
        const std::string left = ToldByChild([&] {
            world.GoOn();
            return call.left();
        });
        const bool isEnded = status == 128 + SIGKILL || status == 0; // it may take fewer calls
        const bool isRight = isEnded && IsOldOrNew(call, left);
        progress.Count(isRight ? Verdict::Right : Verdict::Wrong,
                       call.name + (", killed at system call " + std::to_string(at)) + ": \"" +
                           left + "\"");
    }
}

// At any time: writers that acknowledge each step; what is acknowledged stays.

struct Writer {
    const char* name;
    bool isProtected;
    void (*step)(int number);
    std::string (*content)();
    std::string (*after)(int steps);
};

void AddRow(int number) {
    static SectionDBBase* object = AttachUserTables("User.db3", "Wide Flange");
    SECTIONINFO section = NewSection(("ROW" + std::to_string(number)).c_str());
    if (object->AddSectionData(static_cast<WORD>(number + 2), &section) != 1)
        throw std::runtime_error("a section cannot be added");
}

std::string AddedRows() { return RowsOf("User.db3", "Wide Flange"); }

std::string AfterAddedRows(int steps) {
    std::string text = "MY 1 MY1 7.650000e+00";
    for (int i = 0; i < steps; ++i) {
        const std::string name = "ROW" + std::to_string(i);
        text.append(" ").append(name).append(" ").append(name).append(" 7.650000e+00");
    }
    return text;
}

constexpr int RowsATime = 20;
constexpr const char* LongTable = "A table with a long name";

/// Fills the table in one transaction, and empties it again.
void FillOrEmpty(int number) {
    static CSectionWorkspace workspace;
    if (number == 0)
        openDatabase(&db, "Shapes.db3", 1, 0, 0, Connect(), &workspace);
    openRecordset(&db, &rows, LongTable, 2, 0);
    if (number % 2 == 1) {
        if (deleteAllRecords(&rows) != RowsATime)
            throw std::runtime_error("the rows cannot be deleted");
        return;
    }
    workspace.BeginTrans();
    for (int i = 0; i < RowsATime; ++i) {
        rows->AddNew();
        rows->SetFieldValue(1, "x");
        rows->Update();
    }
    workspace.CommitTrans();
}

std::string FilledRows() {
    const std::string text = RowsOf("Shapes.db3", LongTable);
    return text == "unreadable" ? text : std::to_string(std::ranges::count(text, 'x'));
}

std::string AfterFillOrEmpty(int steps) { return std::to_string(steps % 2 * RowsATime); }

void Select(int number) {
    CDWordArray selection;
    selection.Add(static_cast<DWORD>(number + 1));
    Facade::SaveUserSelectedSections(American, WShape, selection);
}

std::string Selections() { return testsupport::ReadFile("Tables.dbi"); }

std::string AfterSelect(int steps) {
    return "[AISCSections]\nW Shape=" + std::to_string(steps) + "\nRod=2\nAngle=-1\n";
}

/// Builds a catalogue over the one before; its title tells them apart.
void BuildOver(int number) {
    static auto source =
        dbsection::CatalogueSource::Load(SECTIONDB_DATA_DIR "/AustralianColdFormedSections");
    source.title = "edition " + std::to_string(number);
    dbsection::BuildCatalogue(source, "Built.db3", "", [] {});
}

std::string BuiltTitle() {
    if (!std::filesystem::exists("Built.db3"))
        return "none";
    const std::string info = RowsOf("Built.db3", "DBInfo");
    CSectionDatabase* built = nullptr;
    CSectionRecordset* row = nullptr;
    std::string title = "unreadable";
    if (openDatabase(&built, "Built.db3", 1, 0, 1, "", nullptr) == 1 &&
        openRecordset(&built, &row, "Select * From [DBInfo]", 4, 0) == 1)
        title = row->GetFieldValue(0).strVal.View();
    closeRecordset(&row);
    closeDatabase(&built, 1);
    return title;
}

std::string AfterBuildOver(int steps) {
    return steps == 0 ? "none" : "edition " + std::to_string(steps - 1);
}

constexpr std::array Writers{
    Writer{"rows added", false, AddRow, AddedRows, AfterAddedRows},
    Writer{"rows added, protected", true, AddRow, AddedRows, AfterAddedRows},
    Writer{"tables filled and emptied", false, FillOrEmpty, FilledRows, AfterFillOrEmpty},
    Writer{"selections", false, Select, Selections, AfterSelect},
    Writer{"catalogues built over", false, BuildOver, BuiltTitle, AfterBuildOver},
};

/// Starts a writer, kills it after some steps, and returns the number of acknowledged ones.
int KillWriter(const Writer& writer, World& world, std::mt19937& random) {
    int steps[2];
    if (::pipe(steps) != 0)
        throw std::runtime_error("no pipe can be made");
    const pid_t process = testsupport::StartChild([&] {
        world.Begin();
        for (int number = 0;; ++number) {
            writer.step(number);
            if (::write(steps[1], "x", 1) != 1)
                return 1;
        }
    });
    ::close(steps[1]);
    int acknowledged = 0;
    char step = 0;
    for (const auto some = random() % 4; acknowledged < static_cast<int>(some);)
        acknowledged += static_cast<int>(::read(steps[0], &step, 1));
    ::usleep(static_cast<useconds_t>(random() % 3000));
    ::kill(process, SIGKILL);
    testsupport::WaitForChild(process);
    while (::read(steps[0], &step, 1) == 1)
        ++acknowledged;
    ::close(steps[0]);
    return acknowledged;
}

void KillWriters(const Writer& writer, const Originals& originals, int kills, Progress& progress) {
    World world(originals.folder + (writer.isProtected ? "/protected" : "/plain"),
                writer.isProtected ? originals.connect : "");
    std::mt19937 random(20240601U + static_cast<unsigned>(progress.next));
    while (progress.next < kills) {
        world.RestoreFiles();
        const int steps = KillWriter(writer, world, random);
        const std::string content = ToldByChild([&] {
            world.GoOn();
            return writer.content();
        });
        const bool isRight = content == writer.after(steps) || content == writer.after(steps + 1);
        progress.Count(isRight ? Verdict::Right : Verdict::Wrong,
                       writer.name + (", killed after " + std::to_string(steps)) + " steps: \"" +
                           content + "\"");
    }
}

} // namespace

std::vector<Job> KillJobs(const Originals& originals, const Depth& depth) {
    std::vector<Job> jobs;
    for (const CallGroup& group : CallGroups())
        for (const PublicCall& call : group.calls)
            if (call.left && depth.isLong)
                jobs.push_back({"kills at each system call", [&] {
                                    return RunIsolated(call.name, [&](Progress& progress) {
                                        KillInCall(call, originals, progress);
                                    });
                                }});
    for (const Writer& writer : Writers)
        jobs.push_back({std::string("kills: ") + writer.name, [&, kills = depth.kills] {
                            return RunIsolated(writer.name, [&](Progress& progress) {
                                KillWriters(writer, originals,
                                            kills / static_cast<int>(Writers.size()), progress);
                            });
                        }});
    return jobs;
}

} // namespace faults
