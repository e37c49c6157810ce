/// @file
/// The character set of all texts: Windows Latin-1, one byte per character.
#pragma once

#include <string>

#include "orvalix/host/host.h"

namespace orvalix {

/// The Unicode code point of a byte; 0 for control characters and for the bytes that stand for
/// nothing, which have no picture.
char32_t UnicodeOf(unsigned char code);

/// The text in UTF-8, which other libraries expect. Characters without a picture are left out.
std::string ToUtf8(CString const& text);

}  // namespace orvalix
