/// @file
/// The window of the viewer.
#pragma once

#include <QtWidgets/QMainWindow>
#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "orvalix/qt/chart_widget.h"
#include "support/examples.h"
#include "viewer/axes_planes.h"
#include "viewer/page_fit.h"

class QActionGroup;
class QLabel;
class QPrinter;

namespace orvalix {

/// Shows one chart file or one chart of the gallery at a time. What is opened next takes the place
/// of the one before only when it could be opened.
class ViewerWindow : public QMainWindow {
  Q_OBJECT

 public:
  /// @param dataFolder where the data of the gallery stands; empty when there is none
  explicit ViewerWindow(const std::string& dataFolder);
  ~ViewerWindow() override;

  /// Opens a chart file; tells the user when it can't be.
  /// @return whether it is shown
  bool OpenFile(const QString& path);
  /// Opens a chart of the gallery.
  bool OpenExample(const examples::Example& example);
  /// Writes the chart file.
  /// @return whether it is written
  bool SaveFile(const QString& path);
  /// Writes a picture of the bitmap's size: BMP for names that end in .bmp, else PNG.
  bool ExportPicture(const QString& path);
  /// Null until something has been opened.
  ChartWidget* GetChart() const { return m_chart; }
  /// True when closing the chart would lose something.
  bool IsChanged() const { return isWindowModified(); }

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  /// For which the status bar tells of a success.
  static constexpr int kMessageMilliseconds = 5000;

  struct Document {
    QString name;  ///< as the title says
    QString path;  ///< empty for charts of the gallery
  };

  void MakeFileMenu();
  void MakePrintSizeMenu(QMenu& menu);
  void MakeEditMenu();
  void MakeViewMenu();
  void MakeGalleryMenu(QMenu& menu);
  void MakePlanesMenu(QMenu& menu);
  void MakeHelpMenu();
  void MakeStatusBar();
  QAction* AddForChart(QMenu& menu, const QString& text, const QKeySequence& keys,
                       const std::function<void()>& done);

  bool Open(const Document& document, const std::function<void(CChartView3D&)>& fill);
  void ShowChart(std::unique_ptr<ChartWidget> chart, const Document& document);
  void SetDocument(const Document& document);
  /// Runs work on the view of a chart on another thread.
  void WorkOnView(ChartWidget& chart, const QString& what,
                  const std::function<void(CChartView3D&)>& work);
  bool MayLoseChart();
  bool SaveAs();
  void AskAndOpen();
  void AskAndExport();
  void Copy();
  void Print();
  void PreviewPrint();
  void PrintOn(QPrinter& printer);
  void ShowFailure(const QString& what, const QString& advice);
  void ShowKeys();
  void ShowAbout();
  void ChartTurned();
  void PlanesSwitched();
  void MarkChanges();
  void MarkUnchanged();
  void AcceptFile(QDropEvent& event) const;
  void UpdateGallery();
  void UpdateAngles();
  void UpdateSize();
  void UpdatePlanes();

  std::string m_dataFolder;
  Document m_document;
  ChartWidget* m_chart = nullptr;                      ///< the central widget, once there is one
  std::unique_ptr<AxesPlanes> m_planes;                ///< of m_chart
  std::vector<std::array<double, 3>> m_keptRotations;  ///< of all transforms, as the file has them
  bool m_planesChanged = false;                        ///< since the chart was opened or saved
  QList<QAction*> m_chartActions;                      ///< that need a chart
  std::array<QAction*, AxesPlanes::kPlanes> m_planeActions{};
  QActionGroup* m_exampleActions = nullptr;
  QAction* m_fullScreenAction = nullptr;
  QLabel* m_hint = nullptr;  ///< what the mouse does with a chart
  QLabel* m_angles = nullptr;
  QLabel* m_size = nullptr;
  PrintedSize m_printedSize = PrintedSize::kFit;  ///< of the next printout
  bool m_isBusy = false;
};

}  // namespace orvalix
