#include <array>
#include <charconv>

#include "orvalix/foundation/record_text_internal.h"

namespace orvalix {
namespace {

template <class... Numbers>
std::string InParentheses(Numbers... numbers) {
  std::string text;
  ((text += (text.empty() ? "" : ", ") + TextOf(numbers)), ...);
  return "(" + text + ")";
}

}  // namespace

std::string TextOf(int value) { return std::to_string(value); }

std::string TextOf(double value) {
  std::array<char, 32> text;
  const std::to_chars_result end = std::to_chars(text.data(), text.data() + text.size(), value);
  return {text.data(), end.ptr};
}

std::string TextOf(const point3Dtype& value) {
  return InParentheses(value.x, value.y, value.z, value.v);
}

std::string TextOf(const RGBDType& value) {
  return InParentheses(value.red, value.green, value.blue, value.alpha);
}

std::string TextOf(const GLViewportType& value) {
  return InParentheses(value.x, value.y, value.width, value.height);
}

std::string TextOf(const GLViewRType& value) {
  return InParentheses(value.x, value.y, value.width, value.height);
}

std::string TextOf(const CString& value) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string text = "\"";
  for (int i = 0; i < value.GetLength(); ++i) {
    const char letter = value[i];
    if (letter >= ' ' && letter <= '~' && letter != '"' && letter != '\\') {
      text += letter;
    } else {
      const auto byte = static_cast<unsigned char>(letter);
      text += {'\\', 'x', kDigits[byte / 16], kDigits[byte % 16]};
    }
  }
  return text + "\"";
}

}  // namespace orvalix
