/// Shows chart files and the charts of the gallery in a window.

#include <QtCore/QCommandLineParser>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <algorithm>
#include <iostream>
#include <string_view>

#include "orvalix/orvalix.h"
#include "viewer/viewer_window.h"

namespace {

constexpr const char* kListOfExamples = "list";  ///< in place of an example's name

struct Options {
  explicit Options(QCommandLineParser& parser)
      : example("example",
                "Open the chart of the gallery with that name; \"list\" tells the names.", "name"),
        data("data", "Take the data of the gallery from that folder.", "folder") {
    parser.setApplicationDescription(
        "Shows a chart file, or a chart of the gallery, in a window: turn it with the mouse, "
        "magnify it with the wheel, print it, copy it, save pictures.");
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOption(example);
    parser.addOption(data);
    parser.addPositionalArgument("file", "Chart file to open.", "[file]");
  }

  QCommandLineOption example;
  QCommandLineOption data;
};

/// Where the data of the gallery stands: beside an installed program, or in the sources.
QString FindData() {
  const QDir program(QCoreApplication::applicationDirPath());
  for (const QString& folder :
       {program.filePath("../share/ORVALIX/data"), QString(ORVALIX_DATA_FOLDER)}) {
    if (QFileInfo::exists(folder + "/temperature.csv")) return QDir(folder).canonicalPath();
  }
  return {};
}

const examples::Example* FindExample(const QString& name) {
  const auto all = examples::Examples();
  const auto found = std::find_if(all.begin(), all.end(), [&](const examples::Example& example) {
    return name == QString::fromUtf8(example.name);
  });
  return found != all.end() ? &*found : nullptr;
}

int ListExamples() {
  for (const examples::Example& example : examples::Examples()) {
    std::cout << example.name << "\n    " << example.title << "\n";
  }
  return 0;
}

int Fail(const std::string& message) {
  std::cerr << "orvalix-viewer: " << message << "\n";
  return 2;
}

void SetNames() {
  QCoreApplication::setOrganizationName("ORVALIX");
  QCoreApplication::setApplicationName("orvalix-viewer");
  QCoreApplication::setApplicationVersion(ORVALIX_VERSION);
}

QStringList Arguments(int argc, char** argv) {
  QStringList arguments;
  for (int i = 0; i < argc; ++i) arguments << QString::fromLocal8Bit(argv[i]);
  return arguments;
}

/// True for arguments that are answered on a terminal, without a display.
bool IsAnsweredHere(int argc, char** argv) {
  return std::any_of(argv + 1, argv + argc, [](const char* argument) {
    const std::string_view text(argument);
    return text == "-h" || text == "--help" || text == "--help-all" || text == "-v" ||
           text == "--version";
  });
}

}  // namespace

int main(int argc, char** argv) {
  SetNames();
  QCommandLineParser parser;
  const Options options(parser);
  if (IsAnsweredHere(argc, argv)) {
    const QCoreApplication application(argc, argv);
    parser.process(application);
    return 0;
  }
  if (parser.parse(Arguments(argc, argv)) && parser.value(options.example) == kListOfExamples) {
    return ListExamples();
  }

  const QApplication application(argc, argv);
  QGuiApplication::setApplicationDisplayName("ORVALIX Viewer");
  parser.process(application);
  const QStringList files = parser.positionalArguments();
  if (files.size() > 1) return Fail("more than one file; --help tells how it is used");
  const QString name = parser.value(options.example);
  const examples::Example* example = FindExample(name);
  if (!name.isEmpty() && example == nullptr) {
    return Fail("there is no chart \"" + name.toStdString() + "\"; --example list tells the names");
  }
  const QString data = parser.isSet(options.data) ? parser.value(options.data) : FindData();

  // Failures are told with what to do about them instead.
  CErr3D::SetErrorReportMode(0);
  orvalix::ViewerWindow window(data.toStdString());
  window.show();
  if (example == nullptr && files.isEmpty() && !data.isEmpty())
    example = &examples::Examples().front();
  QTimer::singleShot(0, &window, [&] {
    if (!files.isEmpty()) {
      window.OpenFile(files.constFirst());
    } else if (example != nullptr) {
      window.OpenExample(*example);
    }
  });
  return QApplication::exec();
}
