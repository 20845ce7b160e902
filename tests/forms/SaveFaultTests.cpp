// Fails every step of every save, one after the other, and looks at what became of the file, of
// the program's state, and at what the user was told.
#include <iostream>
#include <optional>

#include "Session.h"

using namespace corvane;

enum class Fault { Once, ForGood, Short };

struct FaultRun : testing::Test {
  Session session;
  int Steps = 0, FaultAt = 0, Failed = 0, PutBack = 0, SaidTorn = 0;

  void Inject(Fault fault) {
    Steps = 0;
    InjectedFault = [this, fault](FileStep, std::size_t& bytes) -> std::error_code {
      const int step = Steps++;
      if (fault == Fault::Short && step >= FaultAt)
        bytes = std::min<std::size_t>(bytes, 7 + bytes / 3);
      const bool fails = fault == Fault::ForGood ? step >= FaultAt : step == FaultAt;
      return fails && fault != Fault::Short ? std::make_error_code(std::errc::io_error)
                                            : std::error_code();
    };
  }

  [[nodiscard]] std::optional<std::string> Contents(const std::string& name) const {
    if (!std::filesystem::exists(session.Folder.Path / name)) return {};
    return session.Folder.Get(name);
  }

  void Put(const std::string& name, const std::optional<std::string>& contents) const {
    if (Contents(name) == contents) return;
    std::filesystem::remove(session.Folder.Path / name);
    if (contents) session.Folder.Put(name, *contents);
  }

  // Holds the file and the message against each other; True if the save reached the fault.
  bool Judge(const std::string& name, Fault fault, const std::optional<std::string>& old,
             const std::string& wanted) {
    InjectedFault = nullptr;
    const std::string told = session.Messages.empty() ? "" : session.Told().back();
    const auto says = [&](const char* words) { return told.find(words) != std::string::npos; };
    if (!told.starts_with("Error: ")) {
      EXPECT_EQ(Contents(name), wanted);
      return Steps > FaultAt;
    }
    ++Failed;
    EXPECT_NE(fault, Fault::Short) << told;
    EXPECT_NE(told.find(name.substr(name.find('/') + 1) + " could not be saved: "),
              std::string::npos);
    if (says("NOT as it was") || says("could not be removed")) {
      EXPECT_EQ(fault, Fault::ForGood) << told;  // once failed, it can be put back
      ++SaidTorn;
    } else {
      EXPECT_TRUE(says("The file is as it was.") || says("did not confirm") || says("was removed"));
      EXPECT_EQ(Contents(name), old) << told;
      ++PutBack;
    }
    return true;
  }

  // Runs a save with the file as each of `states`, failing one step after the other.
  void FailEveryStep(const std::string& name, const std::vector<std::optional<std::string>>& states,
                     const std::function<void(const std::function<void()>& inject)>& save) {
    for (const std::optional<std::string>& old : states) {
      Put(name, old);
      save([] {});
      const std::string wanted = Contents(name).value_or("");
      for (const Fault fault : {Fault::Once, Fault::ForGood, Fault::Short}) {
        bool reached = true;
        for (FaultAt = 0; reached && FaultAt < 500; ++FaultAt) {
          Put(name, old);
          session.Told();
          save([&] { Inject(fault); });
          reached = Judge(name, fault, old, wanted);
        }
      }
    }
    std::cout
        << "    " << name << ": " << Failed << " operations failed; " << PutBack
        << " files all old, " << SaidTorn
        << " could not be put back since every later step failed too, and were said to be so; "
        << "no file torn unsaid\n";
    EXPECT_GT(PutBack, 20);
  }
};

TEST_F(FaultRun, GameExe) {
  const std::string old = session.Folder.Get("CC4.EXE");
  session.OpenFile("CC4.EXE");
  StrMap[0].Left = MapHotspots[42].CenterY = 1;
  FailEveryStep("CC4.EXE", {old, old.substr(0, 1201312), old.substr(0, 1150000)},
                [&](const auto& inject) {
                  TablesDirty = true;
                  inject();
                  session.Menu(session.Main.mnuFileSave);
                  EXPECT_EQ(TablesDirty, session.Messages.back().starts_with("Error: "));
                });
}

TEST_F(FaultRun, PatchFile) {
  session.OpenFile("CC4.EXE");
  const std::string old(20000, '#');
  FailEveryStep("p.crv", {std::nullopt, "", old.substr(0, 5000), old.substr(0, 11212), old},
                [&](const auto& inject) {
                  TablesDirty = true;
                  session.Messages = {""};
                  inject();
                  session.SavePatch("p.crv");
                  EXPECT_EQ(TablesDirty, session.Messages.back().starts_with("Error: "));
                });
}

TEST_F(FaultRun, BtdFile) {
  session.OpenFile("CC4.EXE");
  const std::string old(10000, '#');
  FailEveryStep("Maps/new.btd", {std::nullopt, "", old.substr(0, 300), old.substr(0, 8526), old},
                [&](const auto& inject) {
                  session.Within<dlgEditBTD>(session.Main.cmdEditBTD, [&](dlgEditBTD& dialog) {
                    Session::Type(dialog.txtFileName, "new");
                    PickRow(dialog.cboVLType, dialog.cboVLType.ListIndex() == 2 ? 3 : 2);
                    const DestinationTable destinations = VLDest;
                    const BtdText text = dlgEditBTD::VLText;
                    inject();
                    Press(dialog.OKButton);
                    InjectedFault = nullptr;
                    EXPECT_EQ(dialog.txtFileName.Text(), "new");
                    if (!dialog.IsOpen()) return;
                    EXPECT_EQ(VLDest, destinations);
                    EXPECT_EQ(dlgEditBTD::VLText, text);
                  });
                });
}
