#include "faults/CallTrial.h"

#include "dataaccess/CSectionException.h"
#include "interface/SectionDBInterface.h"
#include "platform/MessageBox.h"

#include <algorithm>
#include <new>

namespace faults {
namespace {

std::vector<std::string> boxes;

int KeepBox(const char* text, const char*, unsigned) {
    const Unarmed unarmed;
    boxes.emplace_back(text);
    return 1;
}

/// Runs the call; what it throws becomes its answer.
std::string AnswerOf(const PublicCall& call) {
    try {
        return call.run();
    } catch (CSectionException* e) {
        std::string answer = "throws " + std::to_string(e->GetErrorNumber());
        e->Delete();
        return answer;
    } catch (CMemoryException* e) {
        e->Delete();
        return "throws memory";
    } catch (CException* e) {
        e->Delete();
        return "lets a pointer out";
    } catch (const std::bad_alloc&) {
        return "lets std::bad_alloc out";
    } catch (const std::exception& e) {
        return std::string("lets an exception out: ") + e.what();
    }
}

bool Matches(std::string_view answer, std::string_view pattern) {
    const std::size_t star = pattern.find('*');
    if (star == std::string_view::npos)
        return answer == pattern;
    const std::string_view begin = pattern.substr(0, star);
    const std::string_view end = pattern.substr(star + 1);
    return answer.size() >= begin.size() + end.size() && answer.starts_with(begin) &&
           answer.ends_with(end);
}

const Disturbance& Nothing() {
    static const Disturbance nothing{"nothing", [] {}, [] {}};
    return nothing;
}

} // namespace

void CallTrial::Run(const Disturbance& disturbance, Progress& progress) {
    Begin();
    MakeOnce(disturbance);
    const std::string answer = m_answer;
    Verdict verdict = Judge(disturbance);
    std::string story = m_call.name + std::string(", ") + disturbance.name + ": \"" + answer +
                        "\", kind " + std::to_string(m_kind);
    if (!m_boxes.empty())
        story += ", " + std::to_string(m_boxes.size()) + " reports, \"" + m_boxes.front() + "\"";
    if (!NextIsRight()) {
        story += ", then \"" + m_answer + "\"";
        verdict = std::max(verdict, Verdict::Stuck);
    }
    progress.Count(verdict, story);
}

bool CallTrial::Make(const Disturbance& disturbance) {
    Begin();
    MakeOnce(disturbance);
    return m_answer == m_call.right;
}

void CallTrial::Begin() {
    SetMessageBoxHandler(KeepBox);
    m_world.Begin();
    if (m_isWarm) {
        MakeOnce(Nothing());
        m_world.GoOn();
    }
    if (m_call.left)
        m_world.RestoreFiles();
}

void CallTrial::MakeOnce(const Disturbance& disturbance) {
    m_call.prepare();
    SectionLibraryState::SetExceptionType(0);
    boxes.clear();
    disturbance.begin();
    m_answer = AnswerOf(m_call);
    disturbance.end();
    m_kind = SectionLibraryState::GetExceptionType();
    m_boxes = std::exchange(boxes, {});
    if (m_call.left) {
        m_world.GoOn();
        m_answer += " -> " + m_call.left();
    }
}

Verdict CallTrial::Judge(const Disturbance& disturbance) const {
    if (m_answer == m_call.right)
        return Verdict::Right;
    const auto matches = [&](const std::string& pattern) { return Matches(m_answer, pattern); };
    if (!std::ranges::any_of(m_call.failed, matches))
        return m_answer.starts_with("lets ") ? Verdict::Escaped : Verdict::Wrong;
    constexpr int MemoryKind = 1;
    const bool isDue = !m_call.isQuiet && !m_answer.starts_with("throws ");
    if (isDue && (disturbance.isMemory ? m_kind != MemoryKind : m_kind == 0))
        return Verdict::NoKind;
    return m_boxes.size() > m_call.mostReports ? Verdict::Repeated : Verdict::Told;
}

/// Objects that could not be made stay away until the library is initialised anew.
bool CallTrial::NextIsRight() {
    constexpr int WholeDriver = 39;
    if (AgainIsRight())
        return true;
    if (SectionDBInterface::m_SectionDBDrv.GetObjectCount() == WholeDriver)
        return false;
    SectionDBInterface::UnInitSectionDBInterface();
    SectionDBInterface::InitSectionDBInterface();
    return AgainIsRight();
}

bool CallTrial::AgainIsRight() {
    m_world.GoOn();
    if (m_call.left)
        m_world.RestoreFiles();
    MakeOnce(Nothing());
    return m_answer == m_call.right;
}

} // namespace faults
