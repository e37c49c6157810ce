/// @file
/// A legend on a view of 200 x 100 pixels whose font has known sizes.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "chart/view_fixture.h"
#include "orvalix/chart/legend_3d.h"
#include "orvalix/chart/legend_obj_3d.h"
#include "orvalix/render/font_3d.h"
#include "orvalix/render/text_obj_3d.h"
#include "support/feedback.h"

namespace orvalix::test {

class LegendTest : public ::testing::Test {
 protected:
  LegendTest() : on(200, 100), view(*on.view), legend(*view.NewLegend3D()) {
    view.DrawViewScreen();  // registers the font and gives the view its size
  }

  std::vector<FeedbackPrimitive> Drawn() {
    view.GetOpenGLPntr()->MakeCurrent();
    return CaptureFeedback([&] { legend.DrawLegend(); });
  }

  /// What is drawn of one entry's symbol, on its own, with the legend's square filling the view.
  std::vector<FeedbackPrimitive> DrawnSymbol(CLegendObj3D& entry) {
    COpenGL& gl = *view.GetOpenGLPntr();
    gl.MakeCurrent();
    return CaptureFeedback([&] {
      gl.SetViewport({0, 0, 200, 100});
      gl.SetColorMode(0);
      gl.SetPolygonOutlineMode(0);
      gl.LoadIdentity();
      entry.DrawLegendSymbol();
    });
  }

  /// Width of a text in the legend's square, before the factors of its transform.
  double Width(const char* text) {
    view.GetOpenGLPntr()->SetFontScaleFactor(legend.GetFontSize());
    return view.GetOpenGLPntr()->GetFont()->TextWidth3D(text);
  }

  double Height(const char* text) {
    view.GetOpenGLPntr()->SetFontScaleFactor(legend.GetFontSize());
    return view.GetOpenGLPntr()->GetFont()->TextHeight3D(text);
  }

  ViewOn on;
  CChartView3D& view;
  CLegend3D& legend;
};

}  // namespace orvalix::test
