#include "orvalix/foundation/err_3d.h"

#include <array>
#include <cstddef>
#include <new>

namespace {

constexpr int kShowMessages = 1;

constexpr std::array<const char*, 20> kMessages{"Not an error",
                                                "Mem Alloc Error",
                                                "Array New Error",
                                                "Object New Error",
                                                "Memory Null Pointer",
                                                "Error Opening File for Input",
                                                "Error Opening File for Output",
                                                "Disk I/O Error",
                                                "DIB Handle Error",
                                                "Print DC Error",
                                                "Parameter Error",
                                                "CWnd Parameter Error",
                                                "CView Parameter Error",
                                                "CChartView Parameter Error",
                                                "CDC Parameter Error",
                                                "Transform Parameter Error",
                                                "OpenGL Parameter Error",
                                                "Font Parameter Error",
                                                "Pixel Format Error",
                                                "Bad Polysurface Error"};

const char* MessageOf(int type) {
  if (type < 0 || type >= static_cast<int>(kMessages.size())) return "Unknown Error";
  return kMessages[static_cast<std::size_t>(type)];
}

/// A copy of a text; an empty one when memory runs out.
template <class Text>
CString CopyOf(const Text& text) noexcept {
  try {
    return text;
  } catch (const std::bad_alloc&) {
    return {};
  }
}

}  // namespace

int CErr3D::nErrorReportMode = kShowMessages;

CErr3D::CErr3D() { InitErr3DDefaults(); }

CErr3D::CErr3D(CErr3DTypes type, CErr3DClass errClass, const CString& location)
    : m_class(errClass), m_type(type), m_location(CopyOf(location)) {
  if (nErrorReportMode == kShowMessages) AfxMessageBox(MessageOf(type), MB_OK, 0);
}

CErr3D::CErr3D(const CErr3D& other) noexcept
    : m_class(other.m_class), m_type(other.m_type), m_location(CopyOf(other.m_location)) {}

CErr3D& CErr3D::operator=(const CErr3D& other) noexcept {
  m_class = other.m_class;
  m_type = other.m_type;
  m_location = CopyOf(other.m_location);
  return *this;
}

void CErr3D::InitErr3DDefaults() {
  m_class = ERR3DCLASS_NONE;
  m_type = ERR3D_NOT_AN_ERROR;
  m_location = "";
}

CErr3DTypes CErr3D::GetErrorType() const { return m_type; }

CErr3DClass CErr3D::GetErrorClass() const { return m_class; }

CString CErr3D::GetErrorLocation() const { return CopyOf(m_location); }

CString CErr3D::GetErrorDescription(CErr3DTypes type) const { return CopyOf(MessageOf(type)); }

void CErr3D::SetErrorReportMode(int mode) { nErrorReportMode = mode; }
