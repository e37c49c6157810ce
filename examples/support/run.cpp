#include "support/run.h"

#include <exception>
#include <iostream>

#include "orvalix/orvalix.h"
#include "support/picture.h"
#include "support/view_picture.h"

namespace examples {

void WritePicture(Draw draw, const std::string& data, const std::string& path) {
  // Drawn at twice the size and reduced, which smooths the edges. CChartView3D::SaveToPng() would
  // write the view as it is.
  CWnd window;
  window.CreateOffscreen(2 * kWidth, 2 * kHeight);
  CChartView3D view(&window);
  draw(view, data);
  view.DrawViewScreen();
  orvalix::WritePng(orvalix::Halved(orvalix::TakePicture(view)), path);
}

std::string Describe(const CErr3D& error) {
  const CString description = error.GetErrorDescription(error.GetErrorType());
  const CString place = error.GetErrorLocation();
  return std::string(description) + " in " + std::string(place);
}

int Run(int argc, char** argv, Draw draw) {
  if (argc < 2 || argc > 3) {
    std::cerr << "usage: " << argv[0] << " PICTURE.png [DATA_FOLDER]\n";
    return 2;
  }
  try {
    WritePicture(draw, argc > 2 ? argv[2] : ORVALIX_DATA_FOLDER, argv[1]);
  } catch (const CErr3D& error) {  // every failure of the library
    std::cerr << argv[0] << ": " << Describe(error) << "\n";
    return 1;
  } catch (const std::exception& error) {
    std::cerr << argv[0] << ": " << error.what() << "\n";
    return 1;
  }
  return 0;
}

}  // namespace examples
