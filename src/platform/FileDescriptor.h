// Owner of an open file descriptor.
#pragma once

#include <unistd.h>

namespace dbsection {

/// Closes its descriptor when it goes out of scope; -1 means that nothing is open.
class FileDescriptor {
public:
    explicit FileDescriptor(int descriptor) : m_descriptor(descriptor) {}
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor() {
        if (IsOpen())
            ::close(m_descriptor);
    }

    bool IsOpen() const { return m_descriptor >= 0; }
    int Get() const { return m_descriptor; }

private:
    int m_descriptor;
};

} // namespace dbsection
