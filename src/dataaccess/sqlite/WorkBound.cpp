#include "dataaccess/sqlite/WorkBound.h"

namespace dbsection {
namespace {

constexpr int Stride = 10'000; ///< instructions between two counts

std::int64_t SizeOfFile(sqlite3* database) {
    sqlite3_file* file = nullptr;
    sqlite3_file_control(database, "main", SQLITE_FCNTL_FILE_POINTER, static_cast<void*>(&file));
    sqlite3_int64 size = 0;
    return file->pMethods->xFileSize(file, &size) == SQLITE_OK ? size : 0;
}

} // namespace

void WorkBound::Install(sqlite3* database) {
    m_database = database;
    sqlite3_progress_handler(database, Stride, &WorkBound::CountWork, this);
}

int WorkBound::CountWork(void* self) {
    constexpr std::int64_t Always = 100'000'000;
    constexpr std::int64_t PerByte = 4; // no row takes less than some bytes
    auto& bound = *static_cast<WorkBound*>(self);
    bound.m_done += Stride;
    return bound.m_done > Always && bound.m_done > Always + PerByte * SizeOfFile(bound.m_database)
               ? 1
               : 0;
}

} // namespace dbsection
