#include "shell/widgets/WholeScale.h"

#include <QByteArrayList>
#include <QGuiApplication>
#include <algorithm>
#include <cmath>

namespace morvane {
namespace {

/// A factor such as "1.5", or one for a display by its name: "eDP-1=1.5".
QByteArray WithWholeFactor(const QByteArray& entry) {
  constexpr double kLargest = 16;
  const qsizetype start = entry.lastIndexOf('=') + 1;
  bool isNumber = false;
  const double factor = entry.mid(start).toDouble(&isNumber);
  if (!isNumber || std::isnan(factor)) return entry;
  const long whole = std::lround(std::clamp(factor, 1.0, kLargest));
  return entry.left(start) + QByteArray::number(qlonglong{whole});
}

}  // namespace

void UseWholeScaleFactors() {
  // For scale factors that Qt derives from a display's resolution.
  qunsetenv("QT_SCALE_FACTOR_ROUNDING_POLICY");
  QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::Round);
  // Qt uses these without rounding.
  for (const char* variable : {"QT_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS"}) {
    if (!qEnvironmentVariableIsSet(variable)) continue;
    QByteArrayList entries = qgetenv(variable).split(';');
    std::transform(entries.begin(), entries.end(), entries.begin(), &WithWholeFactor);
    qputenv(variable, entries.join(';'));
  }
}

}  // namespace morvane
