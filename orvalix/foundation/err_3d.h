/// @file
/// The one kind of object that the library throws.
#pragma once

#include "orvalix/host/host.h"

/// What went wrong. The numbers are fixed.
enum CErr3DTypes : int {
  ERR3D_NOT_AN_ERROR = 0,
  ERR3D_MEM_ALLOC = 1,
  ERR3D_ARRAY_NEW = 2,   ///< an array of values could not be allocated
  ERR3D_OBJECT_NEW = 3,  ///< an object could not be created
  ERR3D_NULL_POINTER = 4,
  ERR3D_FILE_OPEN_INPUT = 5,
  ERR3D_FILE_OPEN_OUTPUT = 6,
  ERR3D_DISK_IO = 7,     ///< reading or writing failed inside Save or Load
  ERR3D_DIB_HANDLE = 8,  ///< there is no bitmap
  ERR3D_PRINT_DC = 9,    ///< there is no device context of a printer
  ERR3D_PARAMETER = 10,
  ERR3D_CWND_PARAMETER = 11,       ///< a window is null
  ERR3D_CVIEW_PARAMETER = 12,      ///< a chart was given no usable view
  ERR3D_CHARTVIEW_PARAMETER = 13,  ///< a legend was given no usable view
  ERR3D_CDC_PARAMETER = 14,        ///< there is no device context
  ERR3D_TRANSFORM_PARAMETER = 15,  ///< an object was given no transform
  ERR3D_OPENGL_PARAMETER = 16,     ///< an object was given no rendering context
  ERR3D_FONT_PARAMETER = 17,       ///< a text was given no font
  ERR3D_PIXEL_FORMAT = 18,         ///< OpenGL can't draw into the bitmap
  ERR3D_BAD_POLYSURFACE = 19       ///< an invalid polygon or index in a polysurface
};

/// The class in which it went wrong. The numbers are fixed, gaps included.
enum CErr3DClass : int {
  ERR3DCLASS_AUXOBJ3D = 0,
  ERR3DCLASS_AXES3D = 1,
  ERR3DCLASS_AXIS3D = 2,
  ERR3DCLASS_AXISLABELS3D = 3,
  ERR3DCLASS_CHART3D = 4,
  ERR3DCLASS_CHARTOBJ3D = 5,
  ERR3DCLASS_CHARTVIEW3D = 6,
  ERR3DCLASS_RESERVED7 = 7,  ///< of contours
  ERR3DCLASS_DIB = 8,
  ERR3DCLASS_DIBSECTION = 9,
  ERR3DCLASS_DIBOBJ3D = 10,
  ERR3DCLASS_RESERVED11 = 11,
  ERR3DCLASS_NONE = 12,  ///< of a default-constructed error
  ERR3DCLASS_FONT3D = 13,
  ERR3DCLASS_HEADER3D = 14,
  ERR3DCLASS_LEGEND3D = 15,
  ERR3DCLASS_LEGENDOBJ3D = 16,
  ERR3DCLASS_OPENGL = 17,
  ERR3DCLASS_POLYSURFACE = 18,
  ERR3DCLASS_TEXTOBJ3D = 19,
  ERR3DCLASS_TRANSFORM3D = 20
};

/// An error: its type, the class in which it happened, and the name of the operation that found it,
/// without the class. Thrown by value; programs catch it around calls into the library.
///
/// While the report mode is 1, building one also shows its message in a message box
/// (AfxMessageBox()), so that a program that catches nothing still tells its user.
class ORVALIX_API CErr3D {
 public:
  /// Class 12, type 0, no location; shows nothing.
  CErr3D();
  /// Shows the message of `type` when the report mode is 1.
  /// @param location name of the operation, without its class; empty when memory runs out
  CErr3D(CErr3DTypes type, CErr3DClass errClass, const CString& location);
  /// Copies show nothing. One for whose location memory runs out has an empty location: an error
  /// on its way to whoever catches it must not turn into another.
  CErr3D(const CErr3D& other) noexcept;
  /// As the copy constructor.
  CErr3D& operator=(const CErr3D& other) noexcept;

  /// Makes this the default error.
  void InitErr3DDefaults();
  /// What went wrong.
  CErr3DTypes GetErrorType() const;
  /// The class in which it went wrong.
  CErr3DClass GetErrorClass() const;
  /// Name of the operation that found the error, without its class; empty when memory runs out.
  CString GetErrorLocation() const;
  /// The message of `type`, not of this error; "Unknown Error" for a number without one. Empty when
  /// memory runs out.
  CString GetErrorDescription(CErr3DTypes type) const;
  /// Sets the report mode of the whole library: 1 shows messages, anything else is silent.
  static void SetErrorReportMode(int mode);

  static int nErrorReportMode;  ///< see SetErrorReportMode(); 1 at first

 private:
  CErr3DClass m_class;  ///< where it went wrong
  CErr3DTypes m_type;   ///< what went wrong
  CString m_location;   ///< name of the operation that found the error
};
