#include "document/Options.h"

#include <gtest/gtest.h>

#include "document/Printing.h"
#include "tests/support/Sample.h"

namespace morvane {
namespace {

struct OptionsTest : testing::Test, Editor {
  Options options{document};
};

TEST_F(OptionsTest, DefaultsStandInOnlyForTwoBlacks) {
  options.Form_Load();
  EXPECT_EQ(options.TextMapDir, "");
  EXPECT_EQ(options.ColorBox, 0xFFFFFFU);
  EXPECT_EQ(options.GridColorBox, 0xC0C0C0U);
  EXPECT_EQ(options.GridCheck, 0);
  platform.settings = {{"Color/Canvas", "0"}, {"Color/Grid", "255"}, {"Map/Grid", "1"}};
  options.Form_Load();
  EXPECT_EQ(options.ColorBox, 0U);
  EXPECT_EQ(options.GridColorBox, 255U);
  EXPECT_EQ(options.GridCheck, 1);
}

TEST_F(OptionsTest, OneColourDialogServesBothBoxesAndIsBlackAtFirst) {
  options.Form_Load();
  options.PaletteButton_Click();  // cancelled at once
  EXPECT_EQ(options.ColorBox, 0U);
  platform.colors = {0x123456};
  options.PaletteButton_Click();
  options.GridPaletteButton_Click();  // cancelled: the colour picked before
  EXPECT_EQ(options.ColorBox, 0x123456U);
  EXPECT_EQ(options.GridColorBox, 0x123456U);
  EXPECT_TRUE(platform.settings.empty());
}

TEST_F(OptionsTest, OkWritesAllFiveKeys) {
  options.Form_Load();
  platform.chosenFiles = {"/maps", "", "/custom"};
  options.ButtonMapDir_Click();
  options.ButtonMapDir_Click();  // cancelled
  options.ButtonCustomDir_Click();
  options.GridCheck = 2;
  EXPECT_TRUE(options.cmdOK_Click());
  const std::map<std::string, std::string> expected = {{"Map/Dir", "/maps"},
                                                       {"Custom/Dir", "/custom"},
                                                       {"Color/Canvas", "16777215"},
                                                       {"Color/Grid", "12632256"},
                                                       {"Map/Grid", "0"}};
  EXPECT_EQ(platform.settings, expected);
  EXPECT_EQ(platform.titles[0], "Select the directory where Morvane maps will be saved.");
  EXPECT_EQ(platform.titles[2],
            "Select the directory with your collection of Morvane custom tiles.");
  platform.unwritable = {"/start/Morvane.ini"};
  EXPECT_FALSE(options.cmdOK_Click());
  EXPECT_NE(platform.boxes.back().text.find("/start/Morvane.ini"), std::string::npos);
}

TEST_F(OptionsTest, PrintingTakesTheWholeImageAndTellsAFailure) {
  form.Form_Resize(400, 300);
  mnuFilePrint_Click(document);
  ASSERT_EQ(platform.printed.size(), 1U);
  EXPECT_EQ(platform.printed[0].Width(), 615);
  EXPECT_TRUE(platform.boxes.empty());
  platform.printFailure = "There is no printer.";
  mnuFilePrint_Click(document);
  EXPECT_EQ(platform.boxes.back().text, "The map could not be printed.\n\nThere is no printer.");
  mnuFilePageSetup_Click(document);
  EXPECT_EQ(platform.titles.back(), "Print Setup");
}

}  // namespace
}  // namespace morvane
