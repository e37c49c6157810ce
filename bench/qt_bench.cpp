/// From a mouse event to pixels on the screen: how long it takes, split into drawing, reading the
/// pixels back, and bringing them to the window; beside a widget that shows a picture of that size
/// with QPainter. Needs an X server or another display of Qt's.

#include <benchmark/benchmark.h>

#include <QtGui/QImage>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <chrono>
#include <string>

#include "orvalix/orvalix.h"
#include "orvalix/qt/chart_widget.h"
#include "orvalix/qt/qt_dc.h"
#include "support/examples.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr QSize kSize(1280, 1024);

double Milliseconds(Clock::duration time) {
  return std::chrono::duration<double, std::milli>(time).count();
}

/// Runs work and returns what it took, in milliseconds.
template <class Work>
double Took(const Work& work) {
  const Clock::time_point begin = Clock::now();
  work();
  return Milliseconds(Clock::now() - begin);
}

/// Paints at once and waits until the window system has the pixels.
void PaintNow(QWidget& widget) {
  widget.repaint();
  QGuiApplication::sync();
}

/// Shows what the view of a chart has drawn last, and draws nothing.
class CopyWidget : public QWidget {
 public:
  explicit CopyWidget(CChartView3D& view) : m_view(view) { setAttribute(Qt::WA_OpaquePaintEvent); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    m_dc.SetPainter(&painter);
    CDIBSection& dib = *m_view.GetDIBSection();
    m_dc.BitBlt(0, 0, width(), height(), dib.GetTargetDC(), 0, dib.DIBHeight() - height(), SRCCOPY);
    m_dc.SetPainter(nullptr);
  }

 private:
  CChartView3D& m_view;
  CQtDC m_dc;
};

/// Shows a picture as any program of Qt does.
class PictureWidget : public QWidget {
 public:
  PictureWidget() : m_picture(kSize, QImage::Format_RGB32) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_picture.fill(Qt::darkGreen);
  }

 protected:
  void paintEvent(QPaintEvent*) override { QPainter(this).drawImage(0, 0, m_picture); }

 private:
  QImage m_picture;
};

void Show(QWidget& widget) {
  widget.setFixedSize(kSize);
  widget.move(0, 0);
  widget.show();
  QCoreApplication::processEvents();
  PaintNow(widget);
}

/// A user who drags a chart to and fro.
class Drag {
 public:
  explicit Drag(QWidget& widget) : m_widget(widget) {
    Send(QEvent::MouseButtonPress, Qt::LeftButton);
  }
  ~Drag() { Send(QEvent::MouseButtonRelease, Qt::LeftButton); }
  Drag(const Drag&) = delete;
  Drag& operator=(const Drag&) = delete;

  void Move() {
    m_x += m_step;
    if (m_x > kSize.width() - 100.0 || m_x < 100.0) m_step = -m_step;
    Send(QEvent::MouseMove, Qt::NoButton);
  }

 private:
  void Send(QEvent::Type type, Qt::MouseButton button) {
    const QPointF at(m_x, kSize.height() / 2.0);
    QMouseEvent event(type, at, m_widget.mapToGlobal(at), button, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&m_widget, &event);
  }

  QWidget& m_widget;
  double m_x = kSize.width() / 2.0;
  double m_step = 5.0;
};

const examples::Example& ExampleNamed(const std::string& name) {
  for (const examples::Example& example : examples::Examples()) {
    if (example.name == name) return example;
  }
  std::abort();
}

void MouseToPixels(benchmark::State& state, const std::string& name) {
  ChartWidget chart(kSize);
  CChartView3D& view = *chart.GetView();
  ExampleNamed(name).draw(view, ORVALIX_DATA_FOLDER);
  Show(chart);
  CopyWidget copy(view);
  Show(copy);
  PictureWidget picture;
  Show(picture);
  Drag drag(chart);

  double drawing = 0.0;
  double reading = 0.0;
  double copying = 0.0;
  double plain = 0.0;
  for (auto _ : state) {
    const double total = Took([&] {
      drag.Move();
      PaintNow(chart);
    });
    // Nothing is left to be drawn, so this only reads.
    const double read =
        Took([&] { view.GetOpenGLPntr()->UpdateBitmap(kSize.width(), kSize.height()); });
    const double copied = Took([&] { PaintNow(copy); });
    plain += Took([&] { PaintNow(picture); });
    reading += read;
    copying += copied;
    drawing += total - read - copied;
    state.SetIterationTime(total / 1000.0);
  }
  using benchmark::Counter;
  state.counters["drawing_ms"] = Counter(drawing, Counter::kAvgIterations);
  state.counters["reading_ms"] = Counter(reading, Counter::kAvgIterations);
  state.counters["copying_ms"] = Counter(copying, Counter::kAvgIterations);
  state.counters["plain_picture_ms"] = Counter(plain, Counter::kAvgIterations);
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  for (const char* example : {"bars", "surface"}) {
    benchmark::RegisterBenchmark(
        example, [example](benchmark::State& state) { MouseToPixels(state, example); })
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
  }
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
