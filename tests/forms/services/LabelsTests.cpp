#include "services/Labels.h"

#include <gtest/gtest.h>

#include "forms/Form1.h"
#include "forms/dlgAddConnection.h"

namespace corvane {
namespace {

TEST(Labels, BelowWhichAListStandsNameTheList) {
  const Form1 main;
  EXPECT_EQ(FieldOf(main.Label10), &main.lstMaps);
}

TEST(Labels, StandBesideTheFieldOfTheirLine) {
  const Form1 main;
  EXPECT_EQ(FieldBeside(main.Label1), &main.txtMapLeft);
  EXPECT_EQ(FieldBeside(main.Label10), nullptr);
}

TEST(Labels, OfANoteNameNothing) {
  const dlgAddConnection dialog(0);
  EXPECT_EQ(FieldOf(dialog.Label2), nullptr);
}

TEST(Labels, NameFieldsOfTheirOwnFrameOnly) {
  const Form1 main;
  EXPECT_EQ(FieldOf(main.Label1), &main.txtMapLeft);
  EXPECT_EQ(FieldOf(main.Label5), &main.txtArrowLeft);
}

}  // namespace
}  // namespace corvane
