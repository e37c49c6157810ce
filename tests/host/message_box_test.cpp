#include "orvalix/host/message_box.h"

#include <gtest/gtest.h>

#include <string>

namespace {

constexpr int kAnswer = 7;
std::string shownText;

int Show(const char* text) {
  shownText = text;
  return kAnswer;
}

int ShowOther(const char*) { return kAnswer + 1; }

class MessageBox : public ::testing::Test {
 protected:
  void SetUp() override { shownText = "nothing shown"; }
  void TearDown() override { SetMessageBoxHandler(nullptr); }
};

TEST_F(MessageBox, HandlerGetsTheTextAndAnswers) {
  SetMessageBoxHandler(Show);
  EXPECT_EQ(AfxMessageBox("Disk I/O Error", MB_OK, 0), kAnswer);
  EXPECT_EQ(shownText, "Disk I/O Error");
}

TEST_F(MessageBox, SettingReturnsTheHandlerBefore) {
  EXPECT_EQ(SetMessageBoxHandler(Show), nullptr);
  EXPECT_EQ(SetMessageBoxHandler(ShowOther), &Show);
  EXPECT_EQ(SetMessageBoxHandler(nullptr), &ShowOther);
}

TEST_F(MessageBox, WithoutHandlerWritesToStandardError) {
  ::testing::internal::CaptureStderr();
  const int answer = AfxMessageBox("first");
  AfxMessageBox(nullptr);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "first\n\n");
  EXPECT_EQ(answer, IDOK);
  EXPECT_EQ(shownText, "nothing shown");
}

TEST_F(MessageBox, NullTextIsEmpty) {
  SetMessageBoxHandler(Show);
  AfxMessageBox(nullptr);
  EXPECT_EQ(shownText, "");
}

}  // namespace
