// Tries what may befall the library and its files, and prints how often it met it well:
//
//     sectiondb_faults                         everything, in twenty minutes at most
//     sectiondb_faults damage                  the subjects that have "damage" in their name
//     sectiondb_faults --minutes 5             the same as far as it goes in five
//     sectiondb_faults --sample 100 lists      at most 100 failures of each call, of plain files
//     sectiondb_faults --list                  the names of the public calls that are tried
//
// The exit status is 1 when anything is lost, wrong or crashes, or the time does not suffice.
#include "faults/Injector.h"
#include "faults/Subjects.h"
#include "faults/World.h"
#include "files/CatalogueBuilder.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace faults {

const std::vector<CallGroup>& CallGroups() {
    static const std::vector<CallGroup> groups{
        {"lifecycle", LifecycleCalls()},  {"names", NameCalls()},
        {"lists", ListCalls()},           {"queries", QueryCalls()},
        {"engine", EngineCalls()},        {"databases", DatabaseCalls()},
        {"recordsets", RecordsetCalls()}, {"data classes", DataClassCalls()},
        {"catalogues", CatalogueCalls()}, {"units", UnitCalls()},
        {"platform", PlatformCalls()},
    };
    return groups;
}

} // namespace faults

namespace {

using namespace faults;

struct Options {
    Depth depth = Everything;
    int minutes = 20;
    std::vector<std::string> subjects;
};

void PrintTable(const std::vector<Line>& lines) {
    std::printf("\n%-34s", "");
    for (const char* name : VerdictNames)
        std::printf("%9s", name);
    for (const Line& line : lines) {
        std::printf("\n%-34s", line.subject.c_str());
        for (const long count : line.tally)
            std::printf("%9ld", count);
    }
    std::printf("\n");
}

std::vector<Job> Chosen(const std::vector<Job>& jobs, const std::vector<std::string>& subjects) {
    const auto isChosen = [&](const Job& job) {
        return subjects.empty() || std::ranges::any_of(subjects, [&](const std::string& text) {
                   return job.subject.find(text) != std::string::npos;
               });
    };
    std::vector<Job> chosen;
    std::ranges::copy_if(jobs, std::back_inserter(chosen), isChosen);
    return chosen;
}

/// The files work on memory where they can: a trial is not to wait for a disk.
void UseFolderInMemory() {
    constexpr const char* InMemory = "/dev/shm";
    if (::access(InMemory, W_OK) == 0)
        ::setenv("TMPDIR", InMemory, 0);
}

/// Makes a folder and, in a child, its files: this process is not to use the library.
template <class Body>
void MakeFolder(const std::string& folder, Body body) {
    std::filesystem::create_directory(folder);
    testsupport::RunInChild([&] {
        body();
        return 0;
    });
}

Originals MakeOriginals(const std::string& folder) {
    Originals originals{folder, ";PWD=right"};
    const std::string real = folder + "/real";
    MakeFolder(folder + "/plain", [&] { MakeWorld(folder + "/plain", ""); });
    MakeFolder(folder + "/protected", [&] { MakeWorld(folder + "/protected", originals.connect); });
    MakeFolder(real, [&] {
        const auto source = dbsection::CatalogueSource::Load(SECTIONDB_DATA_DIR "/AISCSections");
        dbsection::BuildCatalogue(source, real + "/plain.db3", "", [] {});
        dbsection::BuildCatalogue(source, real + "/protected.db3", "right", [] {});
    });
    return originals;
}

int List() {
    for (const CallGroup& group : CallGroups())
        for (const PublicCall& call : group.calls)
            std::printf("%s\n", call.name);
    return 0;
}

int Run(const Options& options) {
    UseFolderInMemory();
    const testsupport::TempFolder folder;
    ::setenv("TMPDIR", folder.Path().c_str(), 1); // what a crash leaves behind goes with it
    const Originals originals = MakeOriginals(folder.Path());
    std::vector<Job> jobs = FailureJobs(originals, options.depth);
    for (const auto& more :
         {KillJobs(originals, options.depth), DamageJobs(originals, options.depth)})
        jobs.insert(jobs.end(), more.begin(), more.end());
    if (options.depth.isLong)
        for (const auto& more : {ContentionJobs(originals), SharingJobs(originals)})
            jobs.insert(jobs.end(), more.begin(), more.end());
    jobs = Chosen(jobs, options.subjects);
    if (jobs.empty()) {
        std::fprintf(stderr, "There is no such subject; without one all are tried.\n");
        return 1;
    }
    int skipped = 0;
    const auto lines = RunJobs(jobs, options.minutes, skipped);
    PrintTable(lines);
    if (skipped > 0)
        std::printf("The time is over: %d jobs were not begun.\n", skipped);
    const bool isClean =
        std::ranges::all_of(lines, [](const Line& line) { return IsClean(line.tally); });
    return isClean && skipped == 0 ? 0 : 1;
}

} // namespace

int main(int argumentCount, char** arguments) {
    try {
        InstallMemoryHooks();
        InstallCipherHooks();
        Options options;
        for (int i = 1; i < argumentCount; ++i)
            if (std::strcmp(arguments[i], "--list") == 0)
                return List();
            else if (std::strcmp(arguments[i], "--sample") == 0 && i + 1 < argumentCount)
                options.depth = {std::atol(arguments[++i]), false, 40, 16};
            else if (std::strcmp(arguments[i], "--minutes") == 0 && i + 1 < argumentCount)
                options.minutes = std::atoi(arguments[++i]);
            else
                options.subjects.emplace_back(arguments[i]);
        return Run(options);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "sectiondb_faults: %s\n", e.what());
        return 1;
    }
}
