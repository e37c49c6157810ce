#include "orvalix/host/host_string.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstring>

namespace {

constexpr int kNotFound = -1;

const char* NeverNull(const char* text) { return text != nullptr ? text : ""; }

std::size_t CountFrom(int value) { return value > 0 ? static_cast<std::size_t>(value) : 0; }

// The C library's functions follow the locale; these two never do.
char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

int PositionOf(std::size_t found) {
  return found == std::string::npos ? kNotFound : static_cast<int>(found);
}

CString FromText(const std::string& text) { return {text.data(), static_cast<int>(text.size())}; }

int CompareBytes(char a, char b) {
  return static_cast<int>(static_cast<unsigned char>(a)) -
         static_cast<int>(static_cast<unsigned char>(b));
}

}  // namespace

CString::CString(const char* text) : m_text(NeverNull(text)) {}

CString::CString(const char* text, int length)
    : m_text(NeverNull(text), text != nullptr ? CountFrom(length) : 0) {}

CString::CString(char character, int repeat) : m_text(CountFrom(repeat), character) {}

int CString::GetLength() const { return static_cast<int>(m_text.size()); }

bool CString::IsEmpty() const { return m_text.empty(); }

void CString::Empty() { m_text.clear(); }

CString::operator const char*() const { return m_text.c_str(); }

const char* CString::GetString() const { return m_text.c_str(); }

char CString::GetAt(int index) const {
  return index >= 0 && index < GetLength() ? m_text[static_cast<std::size_t>(index)] : '\0';
}

char CString::operator[](int index) const { return GetAt(index); }

void CString::SetAt(int index, char character) {
  if (index >= 0 && index < GetLength()) m_text[static_cast<std::size_t>(index)] = character;
}

CString& CString::operator=(const char* text) {
  m_text.assign(NeverNull(text));
  return *this;
}

CString& CString::operator+=(const CString& text) {
  m_text += text.m_text;
  return *this;
}

CString& CString::operator+=(const char* text) {
  m_text += NeverNull(text);
  return *this;
}

CString& CString::operator+=(char character) {
  m_text += character;
  return *this;
}

void CString::Format(const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  try {
    FormatV(format, arguments);
  } catch (...) {
    va_end(arguments);
    throw;
  }
  va_end(arguments);
}

void CString::FormatV(const char* format, std::va_list arguments) {
  std::va_list measured;
  va_copy(measured, arguments);
  const int length = std::vsnprintf(nullptr, 0, NeverNull(format), measured);
  va_end(measured);
  // Built apart from m_text, which an argument may point into.
  std::string text(CountFrom(length), '\0');
  if (length > 0) {
    std::vsnprintf(text.data(), text.size() + 1, NeverNull(format), arguments);
  }
  m_text = std::move(text);
}

CString CString::Left(int count) const { return FromText(m_text.substr(0, CountFrom(count))); }

CString CString::Right(int count) const {
  const std::size_t bytes = std::min(CountFrom(count), m_text.size());
  return FromText(m_text.substr(m_text.size() - bytes));
}

CString CString::Mid(int first) const { return Mid(first, GetLength()); }

CString CString::Mid(int first, int count) const {
  const std::size_t start = std::min(CountFrom(first), m_text.size());
  return FromText(m_text.substr(start, CountFrom(count)));
}

int CString::Find(char character, int start) const {
  if (start < 0) return kNotFound;
  return PositionOf(m_text.find(character, static_cast<std::size_t>(start)));
}

int CString::Find(const char* text, int start) const {
  if (start < 0 || text == nullptr) return kNotFound;
  return PositionOf(m_text.find(text, static_cast<std::size_t>(start)));
}

int CString::Compare(const char* text) const { return m_text.compare(NeverNull(text)); }

int CString::CompareNoCase(const char* text) const {
  const char* other = NeverNull(text);
  const std::size_t otherLength = std::strlen(other);
  const std::size_t common = std::min(m_text.size(), otherLength);
  for (std::size_t i = 0; i < common; ++i) {
    const int difference = CompareBytes(Lower(m_text[i]), Lower(other[i]));
    if (difference != 0) return difference;
  }
  if (m_text.size() == otherLength) return 0;
  return m_text.size() < otherLength ? -1 : 1;
}

CString& CString::MakeUpper() {
  std::transform(m_text.begin(), m_text.end(), m_text.begin(), Upper);
  return *this;
}

CString& CString::MakeLower() {
  std::transform(m_text.begin(), m_text.end(), m_text.begin(), Lower);
  return *this;
}

CString operator+(const CString& left, const CString& right) { return CString(left) += right; }

CString operator+(const CString& left, const char* right) { return CString(left) += right; }

CString operator+(const char* left, const CString& right) { return CString(left) += right; }

CString operator+(const CString& left, char right) { return CString(left) += right; }

CString operator+(char left, const CString& right) { return CString(left) += right; }

bool operator==(const CString& left, const CString& right) { return left.m_text == right.m_text; }

bool operator==(const CString& left, const char* right) { return left.Compare(right) == 0; }

std::strong_ordering operator<=>(const CString& left, const CString& right) {
  return left.m_text <=> right.m_text;
}

std::strong_ordering operator<=>(const CString& left, const char* right) {
  return left.Compare(right) <=> 0;
}
