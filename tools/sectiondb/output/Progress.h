// A progress bar on a terminal; silent elsewhere.
#pragma once

#include <cstddef>
#include <string>

namespace dbsection {

class Progress {
public:
    Progress(std::string label, std::size_t total);
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress(); ///< takes the bar off the terminal

    void Advance();

private:
    void Draw() const;

    std::string m_label;
    std::size_t m_total;
    std::size_t m_done = 0;
    bool m_visible;
};

} // namespace dbsection
