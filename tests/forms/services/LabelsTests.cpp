#include "services/Labels.h"

#include <gtest/gtest.h>

#include "forms/Form1.h"
#include "forms/dlgAddConnection.h"

using namespace corvane;

TEST(Labels, NameTheListBelowOrTheFieldBesideInTheirOwnFrame) {
  const Form1 main;
  EXPECT_EQ(FieldOf(main.Label10), &main.lstMaps);
  EXPECT_EQ(FieldBeside(main.Label10), nullptr);
  EXPECT_EQ(FieldBeside(main.Label1), &main.txtMapLeft);
  EXPECT_EQ(FieldOf(main.Label5), &main.txtArrowLeft);
  EXPECT_EQ(FieldOf(dlgAddConnection(0).Label2), nullptr) << "a note";
}
