/// @file
/// Drawings that are kept from frame to frame.
#pragma once

#include <array>
#include <memory>
#include <utility>
#include <vector>

#include "orvalix/render/draw_list_internal.h"
#include "orvalix/render/open_gl.h"

namespace orvalix {

/// What an object draws, gathered into few calls and kept as long as nothing that shapes it has
/// changed. Turning or moving doesn't: it only changes the matrices that the drawing is drawn
/// through.
class KeptDrawing {
 public:
  KeptDrawing() = default;
  KeptDrawing(const KeptDrawing&) = delete;
  KeptDrawing& operator=(const KeptDrawing&) = delete;

  /// Draws what is kept, or, when there is nothing for that shape and state of the context, what
  /// `draw` draws, which is then kept. `draw` loads a matrix before anything else; whatever it
  /// loads must hold the matrix of today.
  /// @param shape all numbers that shape what is drawn, apart from data, with whose changes this
  ///   object goes (KeptDrawingSlot::Forget())
  template <class Draw>
  void Run(COpenGL& context, std::vector<double> shape, Draw draw) {
    if (!context.CanGather()) {
      const COpenGL::HidingFarSides hiding(context);
      draw();
      return;
    }
    context.AppendDrawingState(shape);
    const COpenGL::DrawingState start = context.GetDrawingState();
    const std::size_t ownNumbers = shape.size();
    COpenGL::AppendInherited(shape, start, m_inherited);
    if (m_list != nullptr && context.Owns(*m_list) && IsSame(shape)) {
      context.DrawKept(*m_list, m_end);
      return;
    }
    m_list.reset();
    {
      const COpenGL::Gathering gathering(context);
      draw();
    }
    if (context.HasFailedToGather()) {
      const COpenGL::HidingFarSides hiding(context);
      draw();  // one by one
      return;
    }
    m_list = context.TakeGathered(m_end);
    if (m_list == nullptr) return;
    m_inherited = context.m_inherited;
    shape.resize(ownNumbers);
    COpenGL::AppendInherited(shape, start, m_inherited);
    m_shape = std::move(shape);
  }

 private:
  /// Bit by bit: a number that isn't one is the same as before, too.
  bool IsSame(const std::vector<double>& shape) const;

  std::unique_ptr<DrawList> m_list;
  std::vector<double> m_shape;  ///< for which it was gathered
  unsigned m_inherited = 0;     ///< parts of the context's state that it was gathered in
  COpenGL::DrawingState m_end;  ///< of the context afterwards
};

}  // namespace orvalix
