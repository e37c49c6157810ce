// Asks for a chart file that isn't there, twice: with the message that the library writes by
// itself, and with one of the program's own.

#include <orvalix/orvalix.h>

#include <iostream>

namespace {

void Tell(const CErr3D& error) {
  const CString what = error.GetErrorDescription(error.GetErrorType());
  const CString where = error.GetErrorLocation();
  std::cout << static_cast<const char*>(what) << " (type " << error.GetErrorType() << ") in class "
            << error.GetErrorClass() << ", " << static_cast<const char*>(where) << "\n";
}

}  // namespace

int main() {
  CWnd window;
  window.CreateOffscreen(100, 100);
  CChartView3D view(&window, 100, 100);

  try {
    view.Load("missing.chart");  // writes "Error Opening File for Input" to the standard error
  } catch (const CErr3D& error) {
    Tell(error);
  }

  CErr3D::SetErrorReportMode(0);  // from now on the library writes nothing
  try {
    view.Load("missing.chart");
  } catch (const CErr3D& error) {
    if (error.GetErrorType() == ERR3D_FILE_OPEN_INPUT) std::cout << "There is no such file.\n";
  }
}
