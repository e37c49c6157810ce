/// @file
/// The framework's string of single bytes.
#pragma once

#include <compare>
#include <cstdarg>
#include <string>

#include "orvalix/host/export.h"

/// A string of single bytes that owns its text. A null text is an empty one everywhere; counts and
/// positions out of range are clipped.
///
/// Members that make text throw std::bad_alloc when memory runs out.
class ORVALIX_API CString {
 public:
  /// An empty string.
  CString() = default;
  /// Copies a text up to its terminator.
  CString(const char* text);
  /// Copies `length` bytes, zero bytes included; none when `length` is negative.
  CString(const char* text, int length);
  /// Repeats a character; an empty string when `repeat` is not positive.
  explicit CString(char character, int repeat = 1);

  /// Bytes without the terminator.
  int GetLength() const;
  /// True for a string without bytes.
  bool IsEmpty() const;
  /// Makes the string empty.
  void Empty();

  /// The text with its terminator; valid until the string changes.
  operator const char*() const;
  /// The text with its terminator; valid until the string changes.
  const char* GetString() const;
  /// The byte at a position; 0 out of range.
  char GetAt(int index) const;
  /// The byte at a position; 0 out of range.
  char operator[](int index) const;
  /// Replaces the byte at a position; out of range nothing changes.
  void SetAt(int index, char character);

  /// Replaces the text.
  CString& operator=(const char* text);
  /// Appends. The text may be this string's own.
  CString& operator+=(const CString& text);
  CString& operator+=(const char* text);
  CString& operator+=(char character);

  /// Replaces the text by a formatted one, as printf makes it. Arguments may come from this string.
  [[gnu::format(printf, 2, 3)]] void Format(const char* format, ...);
  /// As Format(), with the arguments in a list.
  [[gnu::format(printf, 2, 0)]] void FormatV(const char* format, std::va_list arguments);

  /// The first `count` bytes.
  CString Left(int count) const;
  /// The last `count` bytes.
  CString Right(int count) const;
  /// Everything from position `first` on.
  CString Mid(int first) const;
  /// `count` bytes from position `first` on.
  CString Mid(int first, int count) const;

  /// Position of a character at or after `start`; -1 when there is none.
  int Find(char character, int start = 0) const;
  /// Position of a text at or after `start`; -1 when there is none or the text is null.
  int Find(const char* text, int start = 0) const;

  /// Byte by byte: below 0, 0 or above 0 when this string comes before, equals or comes after.
  int Compare(const char* text) const;
  /// As Compare(), A to Z taken as a to z.
  int CompareNoCase(const char* text) const;
  /// Turns a to z into A to Z; other bytes stay.
  CString& MakeUpper();
  /// Turns A to Z into a to z; other bytes stay.
  CString& MakeLower();

  /// Both texts, one after the other.
  friend ORVALIX_API CString operator+(const CString& left, const CString& right);
  friend ORVALIX_API CString operator+(const CString& left, const char* right);
  friend ORVALIX_API CString operator+(const char* left, const CString& right);
  friend ORVALIX_API CString operator+(const CString& left, char right);
  friend ORVALIX_API CString operator+(char left, const CString& right);

  /// Byte by byte, as Compare().
  friend ORVALIX_API bool operator==(const CString& left, const CString& right);
  friend ORVALIX_API bool operator==(const CString& left, const char* right);
  /// Byte by byte, as Compare().
  friend ORVALIX_API std::strong_ordering operator<=>(const CString& left, const CString& right);
  friend ORVALIX_API std::strong_ordering operator<=>(const CString& left, const char* right);

 private:
  std::string m_text;  ///< may hold zero bytes
};
