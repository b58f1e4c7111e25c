// A file that a command writes piece by piece: whole in the end, or not at all.
#pragma once

#include <fstream>
#include <string>

namespace dbsection {

/// Until it is finished, another file beside it, which is removed where that never happens.
class StreamedFile {
public:
    /// Throws CommandError where it cannot be written. `content` is what it holds, e.g. "the deck".
    StreamedFile(std::string path, std::string content);
    StreamedFile(const StreamedFile&) = delete;
    StreamedFile& operator=(const StreamedFile&) = delete;
    ~StreamedFile();

    std::ostream& Stream() { return m_stream; }

    /// Gives the file its name. Throws CommandError; then nothing has changed.
    void Finish();

private:
    std::string m_path;
    std::string m_content;
    std::string m_temporary;
    std::ofstream m_stream;
};

} // namespace dbsection
