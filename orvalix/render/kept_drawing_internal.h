/// @file
/// Drawings that are kept from frame to frame.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <new>
#include <utility>
#include <vector>

#include "orvalix/render/draw_list_internal.h"
#include "orvalix/render/kept_drawing.h"
#include "orvalix/render/kept_texts_internal.h"
#include "orvalix/render/open_gl.h"

namespace orvalix {

/// What an object draws, gathered into few calls and kept as long as nothing that shapes it has
/// changed. Turning or moving doesn't: it only changes the matrices that the drawing is drawn
/// through.
class KeptDrawing {
 public:
  /// Numbers that the state which a drawing finds adds to its shape.
  static constexpr std::size_t kMostInherited = 16;

  KeptDrawing() = default;
  KeptDrawing(const KeptDrawing&) = delete;
  KeptDrawing& operator=(const KeptDrawing&) = delete;

  /// Draws what is kept, or, when there is nothing for that shape and state of the context, what
  /// `draw` draws, which is then kept if memory allows it.
  /// @param shape what shapes the drawing, apart from data
  template <class Draw>
  void Run(COpenGL& context, std::vector<double> shape, Draw draw) {
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
      context.SetDrawingState(start);
      DrawOneByOne(context, draw);
      return;
    }
    m_list = context.TakeGathered(m_end);
    if (m_list == nullptr) return;
    try {
      m_inherited = context.m_inherited;
      shape.resize(ownNumbers);
      COpenGL::AppendInherited(shape, start, m_inherited);
      m_shape = std::move(shape);
    } catch (const std::bad_alloc&) {
      m_list.reset();
    }
  }

  /// Draws what `draw` draws, texts too.
  template <class Draw>
  void RunTexts(COpenGL& context, const double* textMatrix, Draw draw) {
    const COpenGL::DrawingState start = context.GetDrawingState();
    {
      const COpenGL::Gathering gathering(context, textMatrix, m_texts);
      draw();
    }
    if (!context.HasFailedToGather()) return;
    context.SetDrawingState(start);
    DrawOneByOne(context, draw);
  }

  template <class Draw>
  static void DrawOneByOne(COpenGL& context, Draw draw) {
    const COpenGL::TellingFarSides telling(context);
    draw();
  }
  static bool CanGather(const COpenGL& context) { return context.CanGather(); }
  /// Appends what of the context's state always shapes a drawing.
  static void AppendState(const COpenGL& context, std::vector<double>& shape) {
    context.AppendDrawingState(shape);
  }

 private:
  /// Bit by bit: a number that isn't one is the same as before, too.
  bool IsSame(const std::vector<double>& shape) const;

  std::unique_ptr<DrawList> m_list;
  std::vector<double> m_shape;  ///< for which it was gathered
  unsigned m_inherited = 0;     ///< parts of the context's state that it was gathered in
  COpenGL::DrawingState m_end;  ///< of the context afterwards
  KeptTexts m_texts;            ///< of an object that draws texts
};

/// Draws an object: what its slot keeps, if it still has that shape, else what `draw` draws.
/// Without memory to gather it, or where OpenGL tells what it would draw, that is drawn one by one.
/// `draw` loads a matrix before anything else; whatever it loads must hold the matrix of today.
/// @param shape makes the numbers that shape the drawing, apart from data, with whose changes the
///   kept drawing goes (KeptDrawingSlot::Forget())
template <class Shape, class Draw>
void DrawKeeping(KeptDrawingSlot& slot, COpenGL& context, Shape shape, Draw draw) {
  KeptDrawing* kept = nullptr;
  std::vector<double> numbers;
  if (KeptDrawing::CanGather(context)) {
    try {
      numbers = shape();
      KeptDrawing::AppendState(context, numbers);
      numbers.reserve(numbers.size() + KeptDrawing::kMostInherited);
      kept = slot.TryGet();
    } catch (const std::bad_alloc&) {
      kept = nullptr;
    }
  }
  if (kept != nullptr) {
    kept->Run(context, std::move(numbers), draw);
  } else {
    KeptDrawing::DrawOneByOne(context, draw);
  }
}

/// Draws texts and what belongs to them, gathered in each frame; their triangles are kept.
/// @param textMatrix the matrix that CTransform3D::TextTransform() has just captured; loaded first.
///   What is drawn through any other one is drawn one by one.
template <class Draw>
void DrawTexts(KeptDrawingSlot& slot, COpenGL& context, const double* textMatrix, Draw draw) {
  const auto drawThrough = [&] {
    context.LoadMatrixTransform(textMatrix);
    draw();
  };
  KeptDrawing* const kept = KeptDrawing::CanGather(context) ? slot.TryGet() : nullptr;
  if (kept != nullptr) {
    kept->RunTexts(context, textMatrix, drawThrough);
  } else {
    KeptDrawing::DrawOneByOne(context, drawThrough);
  }
}

}  // namespace orvalix
