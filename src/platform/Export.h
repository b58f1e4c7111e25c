// Visibility of the library's public symbols.
//
// The library is built with hidden visibility; only what carries DBSECTION_API is exported.
#pragma once

#if defined(_WIN32)
#if defined(DBSECTION_BUILDING)
#define DBSECTION_API __declspec(dllexport)
#else
#define DBSECTION_API __declspec(dllimport)
#endif
#else
#define DBSECTION_API __attribute__((visibility("default")))
#endif
