/// Draws every scene into a folder: a bitmap file, a PNG file, and a page that shows them all.

#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>

#include "orvalix/orvalix.h"
#include "scenes/scenes.h"
#include "support/view_picture.h"

namespace {

void DrawScene(const orvalix::Scene& scene, const std::string& dataFolder,
               const std::filesystem::path& folder) {
  CWnd window;
  window.CreateOffscreen(scene.width, scene.height);
  CChartView3D view(&window);
  scene.build(view, dataFolder);
  const std::filesystem::path path = folder / scene.name;
  view.SaveToFile((path.string() + ".bmp").c_str());
  orvalix::WritePng(orvalix::TakePicture(view), path.string() + ".png");
}

void WriteIndex(const std::filesystem::path& path) {
  std::ofstream page(path);
  page
      << "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
         "<title>ORVALIX gallery</title>\n<style>\n"
         "body { font-family: sans-serif; margin: 2em auto; max-width: 1280px; color: #222; }\n"
         "figure { margin: 0 0 3em; }\nimg { max-width: 100%; border: 1px solid #ddd; }\n"
         "figcaption { margin-top: 0.5em; }\n</style>\n</head>\n<body>\n<h1>ORVALIX gallery</h1>\n";
  for (const orvalix::Scene& scene : orvalix::Scenes()) {
    page << "<figure><img src=\"" << scene.name << ".png\" alt=\"" << scene.title
         << "\"><figcaption>" << scene.title << "</figcaption></figure>\n";
  }
  page << "</body>\n</html>\n";
  if (!page.flush()) throw std::runtime_error("can't write " + path.string());
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2 || argc > 3) {
    std::cerr << "usage: orvalix_gallery OUTPUT_FOLDER [DATA_FOLDER]\n";
    return 2;
  }
  const std::filesystem::path folder = argv[1];
  const std::string dataFolder = argc > 2 ? argv[2] : ORVALIX_DATA_FOLDER;
  try {
    std::filesystem::create_directories(folder);
    std::size_t done = 0;
    for (const orvalix::Scene& scene : orvalix::Scenes()) {
      std::cout << "[" << ++done << "/" << orvalix::Scenes().size() << "] " << scene.name
                << std::endl;
      DrawScene(scene, dataFolder, folder);
    }
    WriteIndex(folder / "index.html");
  } catch (CErr3D& error) {
    std::cerr << "orvalix_gallery: "
              << static_cast<const char*>(error.GetErrorDescription(error.GetErrorType())) << " in "
              << static_cast<const char*>(error.GetErrorLocation()) << "\n";
    return 1;
  } catch (const std::exception& error) {
    std::cerr << "orvalix_gallery: " << error.what() << "\n";
    return 1;
  }
  return 0;
}
