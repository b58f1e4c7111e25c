#include "output/Progress.h"

#include <algorithm>
#include <cstdio>
#include <fmt/format.h>
#include <unistd.h>
#include <utility>

namespace dbsection {
namespace {

constexpr std::size_t Width = 40;

} // namespace

Progress::Progress(std::string label, std::size_t total)
    : m_label(std::move(label)),
      m_total(std::max<std::size_t>(total, 1)),
      m_visible(isatty(STDERR_FILENO) == 1) {
    Draw();
}

Progress::~Progress() {
    if (m_visible)
        std::fputs("\r\033[K", stderr);
}

void Progress::Advance() {
    const std::size_t before = m_done * Width / m_total;
    ++m_done;
    if (m_done * Width / m_total != before)
        Draw();
}

void Progress::Draw() const {
    if (!m_visible)
        return;
    const std::size_t filled = std::min(m_done * Width / m_total, Width);
    fmt::print(stderr, "\r{} [{:#<{}}{: <{}}]", m_label, "", filled, "", Width - filled);
    std::fflush(stderr);
}

} // namespace dbsection
