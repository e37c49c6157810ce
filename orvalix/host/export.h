/// @file
/// Marks what the shared library exports; everything else stays hidden.
#pragma once

#if defined(_WIN32)
#if defined(ORVALIX_STATIC)
#define ORVALIX_API
#elif defined(ORVALIX_BUILDING)
#define ORVALIX_API __declspec(dllexport)
#else
#define ORVALIX_API __declspec(dllimport)
#endif
#else
/// Stands before what the shared library exports.
#define ORVALIX_API __attribute__((visibility("default")))
#endif
