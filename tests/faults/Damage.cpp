#include "faults/CatalogueReading.h"
#include "faults/Subjects.h"

#include "TestSupport.h"
#include "interface/SectionDBInterface.h"
#include "platform/MessageBox.h"

#include <algorithm>
#include <random>

using Facade = SectionDBInterface;
using Answers = std::vector<std::string>;

namespace faults {
namespace {

constexpr std::size_t Stretch = 256;
constexpr long JobsPerFile = 8;
constexpr std::size_t LongestShown = 100;

// The tables and families with rows of the American catalogue that the sources of this tree build.
constexpr std::array Tables{"Field Units", "DBInfo",   "W Shape",       "M Shape",
                            "S Shape",     "HP Shape", "Channel",       "MC Channel",
                            "Angle",       "Pipe",     "HSS Rectangle", "HSS Round"};
constexpr std::array Families{1, 2, 3, 4, 6, 7, 8, 10, 11, 12};

/// The content with a stretch of it replaced: by ones, or at random.
std::string Damaged(std::string content, std::size_t stretch, bool isRandom) {
    std::mt19937 random(static_cast<unsigned>(stretch));
    const auto from = content.begin() + static_cast<std::ptrdiff_t>(stretch * Stretch);
    std::generate_n(from, std::min<std::ptrdiff_t>(Stretch, content.end() - from),
                    [&] { return isRandom ? static_cast<char>(random()) : '\xFF'; });
    return content;
}

/// An answer that the whole file does not give: what could not be read is empty. Null without one.
const std::string* WrongAnswer(const Answers& damaged, const Answers& whole) {
    const auto isWrong = [&](const std::string& answer) {
        return !answer.empty() && std::ranges::count(whole, answer) == 0;
    };
    const auto place = std::ranges::find_if(damaged, isWrong);
    return place == damaged.end() ? nullptr : &*place;
}

void DamageStretches(const Originals& originals, bool isProtected, long job, long step,
                     Progress& progress) {
    const std::string content = testsupport::ReadFile(
        originals.folder + (isProtected ? "/real/protected.db3" : "/real/plain.db3"));
    const char* connect = isProtected ? originals.connect : "";
    const testsupport::TempFolder folder;
    std::filesystem::current_path(folder.Path());
    SetMessageBoxHandler([](const char*, const char*, unsigned) { return 1; });
    Facade::SetProfileDBFolder(folder.Path().c_str());
    Facade::SetINIFileName(folder.File("none.ini").c_str());
    Facade::SetSectionDBPassword(connect);
    const auto read = [&](const std::string& bytes) {
        testsupport::WriteFile("AISCSections.db3", bytes);
        return ReadCatalogue(connect, Tables, Families);
    };
    const Answers whole = read(content);
    if (std::ranges::count(whole, "") > 0)
        progress.Note(Verdict::Wrong, "the undamaged catalogue cannot be read");

    const auto stretches = static_cast<long>((content.size() + Stretch - 1) / Stretch);
    for (;;) {
        const long stretch = (job + progress.next / 2 * JobsPerFile) * step;
        if (stretch >= stretches)
            break;
        const bool isRandom = progress.next % 2 == 1;
        const Answers damaged = read(Damaged(content, static_cast<std::size_t>(stretch), isRandom));
        const std::string* wrong = WrongAnswer(damaged, whole);
        const Verdict verdict = wrong != nullptr
                                    ? (isProtected ? Verdict::Wrong : Verdict::Silent)
                                    : (damaged == whole ? Verdict::Right : Verdict::Told);
        progress.Count(verdict,
                       std::string(isProtected ? "protected" : "plain") + " file, bytes from " +
                           std::to_string(static_cast<std::size_t>(stretch) * Stretch) +
                           (isRandom ? ", random" : ", ones") + ": \"" +
                           (wrong == nullptr ? "" : wrong->substr(0, LongestShown)) + "\"");
    }
}

} // namespace

std::vector<Job> DamageJobs(const Originals& originals, const Depth& depth) {
    std::vector<Job> jobs;
    for (const bool isProtected : {false, true})
        for (long job = 0; job < JobsPerFile; ++job) {
            const std::string subject =
                isProtected ? "damage to a protected catalogue" : "damage to a plain catalogue";
            jobs.push_back({subject, [=, &originals, step = depth.stretchStep] {
                                return RunIsolated(subject, [&](Progress& progress) {
                                    DamageStretches(originals, isProtected, job, step, progress);
                                });
                            }});
        }
    return jobs;
}

} // namespace faults
