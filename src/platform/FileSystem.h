// Files and paths of the platform layer.
//
//     if (GetFileAttributesA(path) & FILE_ATTRIBUTE_READONLY)
//         SetFileAttributesA(path, FILE_ATTRIBUTE_NORMAL);
//
// Every path is accepted with `\` and `/` alike. Errors are the operating system's error numbers
// (errno), 0 being success.
#pragma once

#include "platform/CString.h"
#include "platform/Export.h"

#include <algorithm>
#include <string>
#include <string_view>

#ifndef __AFX_H__

inline constexpr unsigned FILE_ATTRIBUTE_READONLY = 0x1;
inline constexpr unsigned FILE_ATTRIBUTE_DIRECTORY = 0x10;
inline constexpr unsigned FILE_ATTRIBUTE_NORMAL = 0x80;
inline constexpr unsigned INVALID_FILE_ATTRIBUTES = 0xFFFFFFFF;

/// Attributes of a file or folder: read-only when its owner may not write it, normal when nothing
/// else holds; INVALID_FILE_ATTRIBUTES when it is missing or out of reach.
DBSECTION_API unsigned GetFileAttributesA(const char* path);

/// Read-only takes all write permissions away; any other attributes give the owner's back.
/// Returns 1, or 0 when the file is missing or its permissions may not be changed.
DBSECTION_API int SetFileAttributesA(const char* path, unsigned attributes);

#endif

namespace dbsection {

/// The path as system calls take it: `\` becomes `/` on systems that use `/`.
DBSECTION_API std::string NativePath(std::string_view path);

/// Whether two texts name a path alike.
inline bool IsSamePath(std::string_view left, std::string_view right) {
    const auto isSeparator = [](char c) { return c == '\\' || c == '/'; };
    const auto isSame = [&](char one, char other) {
        return one == other || (isSeparator(one) && isSeparator(other));
    };
    return left == right || std::ranges::equal(left, right, isSame);
}

/// Looks for a file, anything but a folder: 0 where there is one, ENOENT where there is none, and
/// otherwise the error that keeps this from being told.
DBSECTION_API int LookForFile(const char* path);

/// Whether the attributes of `path` can be read and it is not a folder.
DBSECTION_API bool IsRegularFile(const char* path);

/// Longest path that is split or composed, in characters.
inline constexpr int MaxPathLength = 260;

struct PathParts {
    CString drive{};     ///< with its colon, e.g. "C:"
    CString folder{};    ///< with its trailing separator
    CString name{};      ///< without extension
    CString extension{}; ///< with its dot
};

/// The parts of a path; all empty when the path is longer than MaxPathLength.
DBSECTION_API PathParts SplitPath(const char* path);

/// The path made of the parts, with a `\` after the folder and a dot before the extension where
/// they are missing. Empty when it would be longer than MaxPathLength: never a cut path.
DBSECTION_API CString ComposePath(const PathParts& parts);

/// Replaces a native path by that of the file that it leads to through symbolic links, whether that
/// exists or not. Returns 0 or an error number.
DBSECTION_API int FollowLinks(std::string& path);

/// The folder in which the file of a native path stands.
std::string FolderOf(const std::string& path);

/// Gives a file a new content, or creates it, as one step: whoever reads it, even after a crash,
/// finds the old content or the new one whole. Permissions and, where allowed, the owner are kept;
/// a symbolic link stays a link. Returns 0 or an error number; on error the file is unchanged. A
/// read-only file is not replaced (EACCES).
DBSECTION_API int ReplaceFile(const char* path, std::string_view content);

/// The same by a finished file, which takes the place of `path` and must stand in the folder of the
/// file that `path` leads to.
DBSECTION_API int MoveOver(const char* finished, const char* path);

} // namespace dbsection
