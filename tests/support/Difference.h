#pragma once

#include <ios>
#include <sstream>
#include <string>

#include "document/picture/Picture.h"

namespace morvane {

/// The first difference of two pictures; empty if they are equal.
inline std::string Difference(const PictureView& one, const PictureView& other) {
  std::ostringstream text;
  if (one.width != other.width || one.height != other.height) {
    text << one.width << " x " << one.height << " is not " << other.width << " x " << other.height;
    return text.str();
  }
  for (int y = 0; y < one.height; ++y) {
    for (int x = 0; x < one.width; ++x) {
      if (one.Row(y)[x] == other.Row(y)[x]) continue;
      text << std::hex << one.Row(y)[x] << " is not " << other.Row(y)[x] << std::dec << " at " << x
           << ", " << y;
      return text.str();
    }
  }
  return {};
}

inline std::string Difference(const Picture& one, const Picture& other) {
  return Difference(one.View(), other.View());
}

}  // namespace morvane
