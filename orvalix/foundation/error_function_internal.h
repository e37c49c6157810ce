/// @file
/// Where vector and matrix stack operations report what goes wrong.
#pragma once

namespace orvalix {

/// Tells the function that seterrorfunc() registered; ends the program with exit status 1 when
/// there is none.
void ReportError(const char* message);

}  // namespace orvalix
