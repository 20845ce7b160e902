#include "services/Labels.h"

#include <gtest/gtest.h>

#include <map>

#include "forms/Form1.h"
#include "forms/dlgAddConnection.h"
#include "forms/dlgEditBTD.h"

namespace corvane {
namespace {

// How many labels name each control.
std::map<const Control*, int> NamedControls(const Form& form) {
  std::map<const Control*, int> named;
  for (const AnyControl& any : form.Controls) {
    if (Label* const* label = std::get_if<Label*>(&any)) ++named[FieldOf(**label)];
  }
  return named;
}

void ExpectEachFieldNamedOnce(const Form& form) {
  auto named = NamedControls(form);
  for (const AnyControl& any : form.Controls) {
    const Control* control = std::visit([](auto* it) -> const Control* { return it; }, any);
    const bool field =
        std::holds_alternative<TextBox*>(any) || std::holds_alternative<ComboBox*>(any);
    if (field) {
      EXPECT_EQ(named[control], 1) << control->Name;
    }
  }
}

TEST(Labels, NameEachFieldOnce) {
  ExpectEachFieldNamedOnce(Form1());
  ExpectEachFieldNamedOnce(dlgAddConnection(0));
  ExpectEachFieldNamedOnce(dlgEditBTD(0));
}

TEST(Labels, BelowWhichAListStandsNameTheList) {
  const Form1 main;
  EXPECT_EQ(FieldOf(main.Label10), &main.lstMaps);
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
