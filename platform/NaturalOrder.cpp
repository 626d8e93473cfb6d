#include "platform/NaturalOrder.h"

#include <QCollator>
#include <QLocale>
#include <algorithm>
#include <utility>

namespace morvane {
namespace {

QCollator NaturalCollator() {
  // The "C" locale has no natural order.
  const bool isPlain = QLocale().language() == QLocale::C;
  QCollator collator(isPlain ? QLocale(QLocale::English) : QLocale());
  collator.setNumericMode(true);
  collator.setCaseSensitivity(Qt::CaseInsensitive);
  return collator;
}

}  // namespace

void SortNaturally(std::vector<std::string>& names) {
  const QCollator collator = NaturalCollator();
  std::vector<std::pair<QCollatorSortKey, std::string>> entries;
  entries.reserve(names.size());
  for (std::string& name : names) {
    QCollatorSortKey key = collator.sortKey(QString::fromStdString(name));
    entries.emplace_back(std::move(key), std::move(name));
  }
  std::sort(entries.begin(), entries.end(), [](const auto& one, const auto& other) {
    const int order = one.first.compare(other.first);
    return order != 0 ? order < 0 : one.second < other.second;
  });
  std::transform(entries.begin(), entries.end(), names.begin(),
                 [](auto& entry) { return std::move(entry.second); });
}

}  // namespace morvane
