#include <gtest/gtest.h>

#include "document/picture/Blit.h"
#include "document/picture/PictureBox.h"

namespace morvane {
namespace {

TEST(PictureBox, ExposesOnlyWhatWasRefreshed) {
  PictureBox box(14, 9, PictureBox::Border::Sunken);
  box.TakeExposed();
  FillBox(box.hDC(), {3, 4, 40, 30}, 0);  // clipped
  EXPECT_TRUE(box.TakeExposed().IsEmpty());
  box.Refresh();
  FillBox(box.hDC(), {5, 1, 6, 2}, 0);
  box.Refresh();
  EXPECT_EQ(box.TakeExposed(), (Rect{3, 1, 10, 5}));
  const PictureBox empty(2, 2, PictureBox::Border::Sunken);
  EXPECT_EQ(Picture(empty.Image()), Picture(1, 1)) << "a file of no pixels could not be read back";
}

}  // namespace
}  // namespace morvane
