#include "support/temporary_file.h"

#include <unistd.h>

#include <filesystem>
#include <system_error>

namespace examples {

TemporaryFile::TemporaryFile(const std::string& extension)
    : m_path((std::filesystem::temp_directory_path() /
              ("orvalix_example_" + std::to_string(::getpid()) + extension))
                 .string()) {}

TemporaryFile::~TemporaryFile() {
  std::error_code ignored;
  std::filesystem::remove(m_path, ignored);
}

}  // namespace examples
