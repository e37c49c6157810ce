// Draws two columns of a CSV file as bars: own_data FILE.csv PICTURE.png
//
// The first line of the file names the columns, each further one holds two numbers.

#include <orvalix/orvalix.h>

#include <algorithm>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

namespace {

struct Table {
  std::string xName;
  std::string yName;
  std::vector<double> x;
  std::vector<double> y;
};

Table Read(const char* path) {
  Table table;
  std::ifstream file(path);
  std::string line;
  std::getline(file, line);
  std::istringstream names(line);
  std::getline(names, table.xName, ',');
  std::getline(names, table.yName);
  double x = 0.0;
  double y = 0.0;
  char comma = 0;
  while (file >> x >> comma >> y) {
    table.x.push_back(x);
    table.y.push_back(y);
  }
  return table;
}

void Draw(const Table& table, const char* path) {
  const int count = static_cast<int>(table.x.size());
  CWnd window;
  window.CreateOffscreen(640, 480);
  CChartView3D view(&window, 640, 480);
  CChart3D* chart = view.NewChart3D();
  chart->SetFontSize(0.06);

  // The scale, from the data: 1 deep, values of x along x, rounded to major steps. It needn't begin
  // at 0, where bars stand.
  CTransform3D* transform =
      chart->AutoTransform25D(table.x.data(), table.y.data(), count, 1.0, 0, 0);
  point3Dtype least = transform->GetScaleMin();
  least.z = std::min(least.z, 0.0);
  transform->SetScaleMin(least);
  transform->SetChartRect({0.7, 0.15, 0.6, 0.0});
  transform->SetOffset({0.06, 0.0, 0.0, 0.0});
  transform->SetRotate({-14.0, 0.0, 12.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  axes->EnableAxis(1, 0);
  axes->EnableAxisLabels(1, 0);
  axes->SetAxisTitleString(0, table.xName.c_str());
  axes->SetAxisTitlePlane(0, 1);  // along its axis
  axes->SetAxisTitleString(2, table.yName.c_str());

  chart->NewChartObj(transform)->BarChart25D(table.x.data(), table.y.data(), 0.0, 0.5, count, 0.8,
                                             0.5, {0.0, 0.62, 0.45, 1.0}, {0.0, 0.0, 0.0, 1.0}, 1,
                                             1, 0);
  view.SaveToPng(path);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: own_data FILE.csv PICTURE.png\n";
    return 2;
  }
  const Table table = Read(argv[1]);
  if (table.x.empty()) {
    std::cerr << "no numbers in " << argv[1] << "\n";
    return 1;
  }
  try {
    Draw(table, argv[2]);
  } catch (const CErr3D&) {
    return 1;  // a message has told what went wrong
  }
  return 0;
}
