# The database engine, as the target dbsection_engine: the system's SQLCipher, or one that is built into
# the library with hidden symbols, so that it never meets an SQLite of the host.
if(NOT DBSECTION_SQLCIPHER_SOURCE)
  find_package(PkgConfig REQUIRED)
  pkg_check_modules(SQLCIPHER REQUIRED IMPORTED_TARGET GLOBAL sqlcipher)
  add_library(dbsection_engine INTERFACE)
  target_link_libraries(dbsection_engine INTERFACE PkgConfig::SQLCIPHER)
  return()
endif()

set(engine_source ${DBSECTION_SQLCIPHER_SOURCE}/sqlite3.c)
if(NOT EXISTS ${engine_source})
  message(FATAL_ERROR "DBSECTION_SQLCIPHER_SOURCE: there is no ${engine_source}")
endif()
find_package(Threads REQUIRED)
# Included as the system's is.
set(engine_headers ${PROJECT_BINARY_DIR}/engine)
configure_file(${DBSECTION_SQLCIPHER_SOURCE}/sqlite3.h ${engine_headers}/sqlcipher/sqlite3.h COPYONLY)

add_library(dbsection_sqlcipher OBJECT ${engine_source})
set_target_properties(dbsection_sqlcipher PROPERTIES
  C_VISIBILITY_PRESET hidden POSITION_INDEPENDENT_CODE ON COMPILE_WARNING_AS_ERROR OFF)
target_compile_options(dbsection_sqlcipher PRIVATE -w)
# As the system's packages build it; a log of its own is never written.
target_compile_definitions(dbsection_sqlcipher PRIVATE
  HAVE_STDINT_H SQLITE_HAS_CODEC SQLCIPHER_CRYPTO_OPENSSL SQLCIPHER_OMIT_LOG SQLITE_TEMP_STORE=2
  SQLITE_THREADSAFE=1 SQLITE_ENABLE_COLUMN_METADATA SQLITE_ENABLE_FTS3 SQLITE_ENABLE_FTS4
  SQLITE_ENABLE_RTREE SQLITE_SECURE_DELETE
  SQLITE_EXTRA_INIT=sqlcipher_extra_init SQLITE_EXTRA_SHUTDOWN=sqlcipher_extra_shutdown NDEBUG)
target_link_libraries(dbsection_sqlcipher PRIVATE OpenSSL::Crypto Threads::Threads ${CMAKE_DL_LIBS})

add_library(dbsection_engine INTERFACE)
target_include_directories(dbsection_engine SYSTEM INTERFACE ${engine_headers})
set(DBSECTION_ENGINE_WITHIN ON)
