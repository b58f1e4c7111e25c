// Visibility of the library's public symbols.
//
// The library is built with hidden visibility; only what carries DBSECTION_API is exported.
// DBSECTION_HIDDEN keeps back a template of an exported class, which else leaves by what is
// inlined.
#pragma once

#if defined(_WIN32)
#if defined(DBSECTION_BUILDING)
#define DBSECTION_API __declspec(dllexport)
#else
#define DBSECTION_API __declspec(dllimport)
#endif
#define DBSECTION_HIDDEN
#else
#define DBSECTION_API __attribute__((visibility("default")))
#define DBSECTION_HIDDEN __attribute__((visibility("hidden")))
#endif
