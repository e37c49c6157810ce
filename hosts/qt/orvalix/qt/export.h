/// @file
/// Marks what the library of the Qt host exports; everything else stays hidden.
#pragma once

#include <QtCore/qglobal.h>

/// @def ORVALIX_QT_API
/// Stands before what the library exports.
#if defined(ORVALIX_QT_STATIC)
#define ORVALIX_QT_API
#elif defined(ORVALIX_QT_BUILDING)
#define ORVALIX_QT_API Q_DECL_EXPORT
#else
#define ORVALIX_QT_API Q_DECL_IMPORT
#endif
