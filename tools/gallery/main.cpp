/// Draws every example into a folder, and a page that shows the pictures with their programs.

#include <algorithm>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "gallery/page.h"
#include "orvalix/orvalix.h"
#include "support/common_options.h"
#include "support/examples.h"

namespace {

constexpr const char* kProgram = "orvalix_gallery";
constexpr const char* kHelp =
    "usage: orvalix_gallery OUTPUT_FOLDER [DATA_FOLDER]\n"
    "       orvalix_gallery --help | --version\n"
    "\n"
    "Draws every example into a folder, and a page that shows the pictures with their programs.\n";

const std::string kSources = ORVALIX_EXAMPLES_FOLDER;

orvalix::SharedSource Shared(const std::string& name, const std::string& purpose) {
  const std::string path = "/support/" + name;
  return {.summary = "examples" + path + ": " + purpose,
          .program = orvalix::ReadSource(kSources + path)};
}

/// Progress goes to the standard output, a line for each picture.
void DrawGallery(const std::filesystem::path& folder, const std::string& data) {
  std::filesystem::create_directories(folder);
  std::vector<orvalix::GalleryEntry> entries;
  const std::size_t count = examples::Examples().size();
  for (const examples::Example& example : examples::Examples()) {
    const std::string name = example.name;
    std::cout << "[" << entries.size() + 1 << "/" << count << "] " << name << std::endl;
    examples::WritePicture(example.draw, data, (folder / (name + ".png")).string());
    entries.push_back(orvalix::EntryOf(name, orvalix::ReadSource(kSources + "/" + name + ".cpp")));
  }
  const std::filesystem::path path = folder / "index.html";
  std::ofstream page(path);
  orvalix::WritePage(page, entries,
                     {Shared("run.cpp", "a view that no window shows, and its picture"),
                      Shared("colors.h", "colours"), Shared("csv_table.h", "tables of data")});
  if (!page.flush()) throw std::runtime_error("can't write " + path.string());
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 2 && orvalix::AnswerCommonOption(argv[1], kProgram, kHelp, std::cout)) return 0;
  const bool hasOption = std::any_of(
      argv + 1, argv + argc, [](std::string_view argument) { return argument.starts_with("--"); });
  if (hasOption) return orvalix::RefuseCommandLine(kProgram, "unknown option", std::cerr);
  if (argc < 2 || argc > 3) {
    return orvalix::RefuseCommandLine(kProgram, argc < 2 ? "no folder" : "too many arguments",
                                      std::cerr);
  }
  try {
    DrawGallery(argv[1], argc > 2 ? argv[2] : ORVALIX_DATA_FOLDER);
  } catch (const CErr3D& error) {
    std::cerr << "orvalix_gallery: " << examples::Describe(error) << "\n";
    return 1;
  } catch (const std::exception& error) {
    std::cerr << "orvalix_gallery: " << error.what() << "\n";
    return 1;
  }
  return 0;
}
