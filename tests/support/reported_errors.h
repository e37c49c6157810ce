/// @file
/// What vector and matrix stack operations report, as texts that tests compare.
#pragma once

#include <string>
#include <vector>

#include "orvalix/foundation/vectors.h"

namespace orvalix::test {

/// Registers its own error function while it lives; afterwards there is none. One at a time.
class ReportedErrors {
 public:
  ReportedErrors() {
    Texts().clear();
    seterrorfunc([](const char* message) { Texts().emplace_back(message); });
  }
  ~ReportedErrors() { seterrorfunc(nullptr); }
  ReportedErrors(const ReportedErrors&) = delete;
  ReportedErrors& operator=(const ReportedErrors&) = delete;

  /// What has been reported since the last call.
  std::vector<std::string> Take() {
    std::vector<std::string> taken;
    taken.swap(Texts());
    return taken;
  }

 private:
  static std::vector<std::string>& Texts() {
    static std::vector<std::string> texts;
    return texts;
  }
};

}  // namespace orvalix::test
