#include "platform/NaturalOrder.h"

#include <QCollator>
#include <QLocale>
#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>
#include <utility>

namespace morvane {
namespace {

/// The order of the collation standard for plain characters. A number ranks as its first digit.
constexpr std::string_view kRanking =
    " _-,;:!?.'\"()[]{}@*/\\&#%`^+<=>|~$0abcdefghijklmnopqrstuvwxyz";

using Ranks = std::array<std::uint8_t, 256>;

/// The rank of each plain character, beginning with 1; 0 for all others.
constexpr Ranks MakeRanks() {
  Ranks ranks{};
  for (std::size_t i = 0; i < kRanking.size(); ++i) {
    const auto c = static_cast<unsigned char>(kRanking[i]);
    ranks[c] = static_cast<std::uint8_t>(i + 1);
    if (c >= 'a' && c <= 'z') ranks[c - 'a' + 'A'] = ranks[c];
  }
  for (unsigned c = '1'; c <= '9'; ++c) ranks[c] = ranks['0'];
  return ranks;
}

constexpr Ranks kRanks = MakeRanks();

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

/// Appends bytes that compare as the name does. False where the name isn't plain.
bool AppendKey(std::string& keys, std::string_view name) {
  constexpr std::size_t kMostDigits = 255;
  for (std::size_t i = 0; i < name.size();) {
    const std::uint8_t rank = kRanks[static_cast<unsigned char>(name[i])];
    if (rank == 0) return false;
    keys.push_back(static_cast<char>(rank));
    if (!IsDigit(name[i])) {
      ++i;
      continue;
    }
    // The longer number is the larger one.
    std::size_t end = i;
    while (end < name.size() && IsDigit(name[end])) ++end;
    while (i + 1 < end && name[i] == '0') ++i;
    if (end - i > kMostDigits) return false;
    keys.push_back(static_cast<char>(end - i));
    keys.append(name.substr(i, end - i));
    i = end;
  }
  return true;
}

/// A name to be sorted, its first bytes at hand: most pairs differ in them.
struct PlainEntry {
  std::uint64_t head;
  std::string_view key;
  std::size_t index;
};

std::uint64_t HeadOf(std::string_view key) {
  std::uint64_t head = 0;
  for (std::size_t i = 0; i < sizeof head; ++i) {
    head = head << 8U | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0U);
  }
  return head;
}

/// Puts the names into the order of the entries.
template <typename Entry>
void Arrange(std::vector<std::string>& names, const std::vector<Entry>& entries) {
  std::vector<std::string> sorted;
  sorted.reserve(names.size());
  for (const Entry& entry : entries) sorted.push_back(std::move(names[entry.index]));
  names = std::move(sorted);
}

/// Sorts names of plain characters. False where there are others, and nothing is changed.
bool SortPlainNames(std::vector<std::string>& names) {
  std::string keys;
  std::vector<std::size_t> ends;
  ends.reserve(names.size());
  keys.reserve(names.size() * 32);
  for (const std::string& name : names) {
    if (!AppendKey(keys, name)) return false;
    ends.push_back(keys.size());
  }
  std::vector<PlainEntry> entries;
  entries.reserve(names.size());
  std::size_t begin = 0;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const std::string_view key = std::string_view(keys).substr(begin, ends[i] - begin);
    entries.push_back({HeadOf(key), key, i});
    begin = ends[i];
  }
  std::sort(entries.begin(), entries.end(),
            [&names](const PlainEntry& one, const PlainEntry& other) {
              if (one.head != other.head) return one.head < other.head;
              const int order = one.key.compare(other.key);
              return order != 0 ? order < 0 : names[one.index] < names[other.index];
            });
  Arrange(names, entries);
  return true;
}

void SortByLanguage(std::vector<std::string>& names) {
  // The plain "C" locale knows no natural order.
  const bool plain = QLocale().language() == QLocale::C;
  QCollator natural(plain ? QLocale(QLocale::English) : QLocale());
  natural.setNumericMode(true);
  natural.setCaseSensitivity(Qt::CaseInsensitive);
  struct Entry {
    QCollatorSortKey key;
    std::size_t index;
  };
  std::vector<Entry> entries;
  entries.reserve(names.size());
  for (std::size_t i = 0; i < names.size(); ++i) {
    entries.push_back({natural.sortKey(QString::fromStdString(names[i])), i});
  }
  std::sort(entries.begin(), entries.end(), [&names](const Entry& one, const Entry& other) {
    const int order = one.key.compare(other.key);
    return order != 0 ? order < 0 : names[one.index] < names[other.index];
  });
  Arrange(names, entries);
}

}  // namespace

void SortNaturally(std::vector<std::string>& names) {
  if (!SortPlainNames(names)) SortByLanguage(names);
}

}  // namespace morvane
