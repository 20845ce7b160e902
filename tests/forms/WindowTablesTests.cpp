// Rules that the control tables of every window must obey.
#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <memory>
#include <set>

#include "TestFolder.h"
#include "base/LetterCase.h"
#include "forms/Form1.h"
#include "forms/dlgAddConnection.h"
#include "forms/dlgEditBTD.h"
#include "services/Labels.h"

using namespace corvane;

namespace {

Control& Any(const AnyControl& any) {
  return std::visit([](auto* control) -> Control& { return *control; }, any);
}

constexpr int Pixel = 15;  // twips; a heading may overlap the box below by this

// In twips, relative to the client area.
struct Area {
  int Left, Top, Right, Bottom;
  explicit Area(const Control& control)
      : Left(control.At.Left + (control.Parent ? control.Parent->At.Left : 0)),
        Top(control.At.Top + (control.Parent ? control.Parent->At.Top : 0)),
        Right(Left + control.At.Width),
        Bottom(Top + control.At.Height) {}
  [[nodiscard]] bool Overlaps(const Area& other) const {
    return Left < other.Right && other.Left < Right && Top + Pixel < other.Bottom &&
           other.Top + Pixel < Bottom;
  }
};

struct Window : testing::TestWithParam<const char*> {
  Window() {
    ResetTables();
    const std::string name = GetParam();
    if (name == "Form1") Shown = std::make_shared<Form1>();
    if (name == "dlgEditBTD") Shown = std::make_shared<dlgEditBTD>(0);
    if (name == "dlgAddConnection") Shown = std::make_shared<dlgAddConnection>(0);
  }
  std::shared_ptr<Form> Shown;  // deletes the derived type
};

}  // namespace

TEST_P(Window, KeepsControlsInsideTheirParentsAndApart) {
  for (const AnyControl& any : Shown->Controls) {
    const Control& control = Any(any);
    const Place& at = control.At;
    SCOPED_TRACE(control.Name);
    EXPECT_GE(at.Left, 0);
    EXPECT_GE(at.Top, 0);
    EXPECT_LE(at.Left + at.Width, control.Parent ? control.Parent->At.Width : Shown->ClientWidth);
    EXPECT_LE(at.Top + at.Height, control.Parent ? control.Parent->At.Height : Shown->ClientHeight);
    for (const AnyControl& other : Shown->Controls) {
      const Control& neighbour = Any(other);
      if (&neighbour == &control || &neighbour == control.Parent || neighbour.Parent == &control)
        continue;
      EXPECT_FALSE(Area(control).Overlaps(Area(neighbour))) << neighbour.Name;
    }
  }
}

TEST_P(Window, NamesAndNumbersEachControlOnce) {
  std::set<std::string> names, accessible;
  std::set<int> tabs;
  for (const AnyControl& any : Shown->Controls) {
    const Control& control = Any(any);
    EXPECT_GE(control.TabIndex, 0);
    EXPECT_LT(control.TabIndex, std::ssize(Shown->Controls));
    EXPECT_TRUE(tabs.insert(control.TabIndex).second) << control.Name;
    EXPECT_TRUE(names.insert(control.Name).second) << control.Name;
    if (!control.TakesFocus()) continue;
    EXPECT_STRNE(control.AccessibleName, "") << control.Name;
    EXPECT_TRUE(accessible.insert(control.AccessibleName).second) << control.Name;
  }
}

TEST(TypedLimits, AreOneLessThanTheWidthOfTheField) {
  const dlgEditBTD dialog(0);
  const std::pair<const TextBox*, std::size_t> rows[] = {
      {&dialog.txtVLName, sizeof VictoryLocation::Name},
      {&dialog.txtFileName, sizeof BtdText::BaseName},
      {&dialog.txtAlliedBrief, sizeof BtdText::AlliedBrief},
      {&dialog.txtAxisBrief, sizeof BtdText::AxisBrief},
      {&dialog.txtVLX, std::strlen("255")},
      {&dialog.txtVLY, std::strlen("255")}};
  for (const auto& [box, width] : rows)
    EXPECT_EQ(box->TypedLimit, static_cast<int>(width) - 1) << box->Name;
}

TEST_P(Window, NamesEachBoxAfterItsLabel) {
  std::map<const Control*, std::string> words;
  for (const AnyControl& any : Shown->Controls) {
    Label* const* label = std::get_if<Label*>(&any);
    if (!label || FieldOf(**label) == nullptr) continue;
    const std::string caption = (*label)->Caption;
    // The caption names the table; a screen reader says what it means.
    words[FieldOf(**label)] +=
        caption == "STRARROW:" ? "Arrow" : caption.substr(0, caption.find(':'));
  }
  for (const AnyControl& any : Shown->Controls) {
    const Control& box = Any(any);
    if (!std::holds_alternative<TextBox*>(any) && !std::holds_alternative<ComboBox*>(any)) continue;
    ASSERT_TRUE(words.contains(&box)) << box.Name;
    EXPECT_TRUE(ToUpper(box.AccessibleName).starts_with(ToUpper(words[&box])))
        << box.Name << words[&box];
  }
}

TEST_P(Window, UsesEachMnemonicOnce) {
  std::vector<std::string> captions;
  for (const AnyControl& any : Shown->Controls) captions.emplace_back(Any(any).Caption);
  for (const MenuEntry* entry : Shown->Menus) captions.emplace_back(entry->Caption);
  std::set<char> letters;
  for (const std::string& caption : captions) {
    const std::size_t mark = caption.find('&');
    if (mark == caption.npos) continue;
    EXPECT_TRUE(letters.insert(caption[mark + 1]).second) << caption;
  }
}

INSTANTIATE_TEST_SUITE_P(Tables, Window,
                         testing::Values("Form1", "dlgEditBTD", "dlgAddConnection"));

TEST(Labels, NameTheListBelowOrTheFieldBesideThemOrNothing) {
  const Form1 main;
  EXPECT_EQ(FieldOf(main.Label10), &main.lstMaps);
  EXPECT_EQ(FieldBeside(main.Label10), nullptr);
  EXPECT_EQ(FieldOf(main.Label5), &main.txtArrowLeft);
  EXPECT_EQ(FieldOf(dlgAddConnection(0).Label2), nullptr) << "a note";
}
