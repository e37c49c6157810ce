/// @file
/// What the programs of all examples do: a view that no window shows, the chart, a picture of it.
#pragma once

#include <string>

class CChartView3D;
class CErr3D;

namespace examples {

/// Fills an empty view.
/// @param data the folder of the data
using Draw = void (*)(CChartView3D& view, const std::string& data);

/// Pixels of the pictures.
inline constexpr int kWidth = 1280;
inline constexpr int kHeight = 960;

/// Writes a PNG file of what `draw` draws.
void WritePicture(Draw draw, const std::string& data, const std::string& path);

/// What a failure of the library was and where, for messages.
std::string Describe(const CErr3D& error);

/// The main function of an example: takes the picture's path, and the folder of the data if that
/// isn't where it was when the program was built.
/// @return the exit status
int Run(int argc, char** argv, Draw draw);

}  // namespace examples
