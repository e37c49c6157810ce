#include <array>

#include "orvalix/render/code_page_internal.h"

namespace orvalix {
namespace {

constexpr unsigned char kFirstPrintable = 0x20;
constexpr unsigned char kDelete = 0x7F;
constexpr unsigned char kFirstSpecial = 0x80;
constexpr unsigned char kFirstLatin = 0xA0;

/// The bytes 0x80 to 0x9F, where Windows Latin-1 differs from Latin-1; 0: no character.
constexpr std::array<char32_t, kFirstLatin - kFirstSpecial> kSpecials{
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

/// Appends a code point of the basic plane.
void AppendUtf8(std::string& utf8, char32_t point) {
  if (point < 0x80) {
    utf8 += static_cast<char>(point);
    return;
  }
  if (point < 0x800) {
    utf8 += static_cast<char>(0xC0 | (point >> 6));
  } else {
    utf8 += static_cast<char>(0xE0 | (point >> 12));
    utf8 += static_cast<char>(0x80 | ((point >> 6) & 0x3F));
  }
  utf8 += static_cast<char>(0x80 | (point & 0x3F));
}

}  // namespace

char32_t UnicodeOf(unsigned char code) {
  if (code < kFirstPrintable || code == kDelete) return 0;
  if (code < kFirstSpecial || code >= kFirstLatin) return code;
  return kSpecials[code - kFirstSpecial];
}

std::string ToUtf8(CString const& text) {
  std::string utf8;
  for (int i = 0; i < text.GetLength(); ++i) {
    const char32_t point = UnicodeOf(static_cast<unsigned char>(text[i]));
    if (point != 0) AppendUtf8(utf8, point);
  }
  return utf8;
}

}  // namespace orvalix
