/// @file
/// A picture as a plain program would draw it that knows nothing of charts.
#pragma once

#define GL_GLEXT_PROTOTYPES
#include <GL/gl.h>
#include <GL/glext.h>

#include <array>
#include <cstddef>
#include <functional>
#include <vector>

/// The triangles and lines of a picture, in coordinates of the screen and with their colours.
class ScreenGeometry {
 public:
  /// Of what `draw` draws on the current context, into so many pixels. OpenGL tells of it.
  ScreenGeometry(const std::function<void()>& draw, int width, int height)
      : m_halfWidth(0.5F * static_cast<float>(width)),
        m_halfHeight(0.5F * static_cast<float>(height)) {
    constexpr GLsizei kMostHeard = 1 << 24;
    std::vector<GLfloat> heard(kMostHeard);
    glFeedbackBuffer(kMostHeard, GL_3D_COLOR, heard.data());
    glRenderMode(GL_FEEDBACK);
    draw();
    heard.resize(static_cast<std::size_t>(glRenderMode(GL_RENDER)));
    for (std::size_t at = 0; at < heard.size();) at = Take(heard, at);
  }

  struct Vertex {
    std::array<float, 3> position;
    std::array<float, 3> color;
  };
  const std::vector<Vertex>& Triangles() const { return m_triangles; }
  const std::vector<Vertex>& Lines() const { return m_lines; }

 private:
  static constexpr std::size_t kNumbers = 7;  ///< of a vertex: x, y, z, red, green, blue, alpha

  /// Takes what is told of at a place. @return the place behind it
  std::size_t Take(const std::vector<GLfloat>& heard, std::size_t at) {
    const auto token = static_cast<GLenum>(heard[at++]);
    if (token == GL_PASS_THROUGH_TOKEN) return at + 1;
    if (token == GL_POLYGON_TOKEN) {
      const auto corners = static_cast<std::size_t>(heard[at++]);
      for (std::size_t i = 2; i < corners; ++i) {
        for (const std::size_t corner : {std::size_t{0}, i - 1, i}) {
          m_triangles.push_back(VertexAt(heard, at + corner * kNumbers));
        }
      }
      return at + corners * kNumbers;
    }
    if (token != GL_LINE_TOKEN && token != GL_LINE_RESET_TOKEN) return at + kNumbers;
    m_lines.push_back(VertexAt(heard, at));
    m_lines.push_back(VertexAt(heard, at + kNumbers));
    return at + 2 * kNumbers;
  }
  Vertex VertexAt(const std::vector<GLfloat>& heard, std::size_t at) const {
    return {{heard[at] / m_halfWidth - 1.0F, heard[at + 1] / m_halfHeight - 1.0F,
             2.0F * heard[at + 2] - 1.0F},
            {heard[at + 3], heard[at + 4], heard[at + 5]}};
  }

  float m_halfWidth;
  float m_halfHeight;
  std::vector<Vertex> m_triangles;
  std::vector<Vertex> m_lines;  ///< two each
};

/// Draws such a picture from a static buffer in two calls.
class ReplayedPicture {
 public:
  /// Into the current context.
  explicit ReplayedPicture(const ScreenGeometry& geometry)
      : m_triangles(static_cast<GLsizei>(geometry.Triangles().size())),
        m_lines(static_cast<GLsizei>(geometry.Lines().size())) {
    const GLsizeiptr triangleBytes = m_triangles * GLsizeiptr{sizeof(ScreenGeometry::Vertex)};
    const GLsizeiptr lineBytes = m_lines * GLsizeiptr{sizeof(ScreenGeometry::Vertex)};
    glGenBuffers(1, &m_buffer);
    glBindBuffer(GL_ARRAY_BUFFER, m_buffer);
    glBufferData(GL_ARRAY_BUFFER, triangleBytes + lineBytes, nullptr, GL_STATIC_DRAW);
    glBufferSubData(GL_ARRAY_BUFFER, 0, triangleBytes, geometry.Triangles().data());
    glBufferSubData(GL_ARRAY_BUFFER, triangleBytes, lineBytes, geometry.Lines().data());
    glBindBuffer(GL_ARRAY_BUFFER, 0);
  }
  ~ReplayedPicture() { glDeleteBuffers(1, &m_buffer); }
  ReplayedPicture(const ReplayedPicture&) = delete;
  ReplayedPicture& operator=(const ReplayedPicture&) = delete;

  /// Into a viewport of all pixels.
  void Draw() const {
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    for (const GLenum capability : {GLenum{GL_LIGHTING}, GLenum{GL_TEXTURE_1D}}) {
      glDisable(capability);
    }
    glDepthRange(0.0, 1.0);
    glBindBuffer(GL_ARRAY_BUFFER, m_buffer);
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_COLOR_ARRAY);
    glVertexPointer(3, GL_FLOAT, sizeof(ScreenGeometry::Vertex), nullptr);
    glColorPointer(3, GL_FLOAT, sizeof(ScreenGeometry::Vertex),
                   reinterpret_cast<const void*>(offsetof(ScreenGeometry::Vertex, color)));
    glEnable(GL_POLYGON_OFFSET_FILL);
    glDrawArrays(GL_TRIANGLES, 0, m_triangles);
    glDisable(GL_POLYGON_OFFSET_FILL);
    glDrawArrays(GL_LINES, m_triangles, m_lines);
    glDisableClientState(GL_COLOR_ARRAY);
    glDisableClientState(GL_VERTEX_ARRAY);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
  }

 private:
  GLuint m_buffer = 0;
  GLsizei m_triangles;  ///< vertices
  GLsizei m_lines;
};
