#include "viewer/error_text.h"

#include <QtCore/QCoreApplication>

#include "orvalix/orvalix.h"

namespace orvalix {
namespace {

QString Text(const char* source) { return QCoreApplication::translate("Viewer", source); }

QString AdviceOn(const CErr3D& error, Purpose purpose) {
  const CErr3DTypes type = error.GetErrorType();
  switch (type) {
    case ERR3D_FILE_OPEN_INPUT:
      return Text("The file can't be opened. Check that it exists and that you may read it.");
    case ERR3D_FILE_OPEN_OUTPUT:
      return Text("The file can't be made. Choose a folder that you may write to.");
    case ERR3D_DISK_IO:
      if (purpose == Purpose::kOpening) {
        return Text(
            "This is no chart file, or it is damaged. The program orvalix-inspect shows "
            "where it stops making sense.");
      }
      return Text("Writing failed. Check that the disk has room, or choose another folder.");
    case ERR3D_MEM_ALLOC:
    case ERR3D_ARRAY_NEW:
    case ERR3D_OBJECT_NEW:
      return Text("There is not enough memory. Close other programs and try again.");
    case ERR3D_PIXEL_FORMAT:
      return Text(
          "OpenGL can't draw here. Install a driver for it, for example Mesa (on Debian: "
          "libegl1 and libgl1-mesa-dri).");
    default: {
      const CString description = error.GetErrorDescription(type);
      const CString place = error.GetErrorLocation();
      return Text("Something unexpected went wrong: %1 in %2. Try another chart.")
          .arg(QString::fromUtf8(static_cast<const char*>(description)),
               QString::fromUtf8(static_cast<const char*>(place)));
    }
  }
}

}  // namespace

QString AdviceOn(const std::exception_ptr& failure, Purpose purpose) {
  try {
    std::rethrow_exception(failure);
  } catch (const CErr3D& error) {
    return AdviceOn(error, purpose);
  } catch (const std::exception& error) {
    return QString::fromUtf8(error.what());
  }
}

}  // namespace orvalix
