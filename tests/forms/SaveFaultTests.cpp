// Fails every step of every save, one after the other, once and from then on for good, and holds
// the file and the program's state against what the user was told.
#include <cstdio>

#include "Session.h"

using namespace corvane;

struct SaveFault : testing::Test {
  Session session;
  int Failed = 0, Torn = 0;

  ~SaveFault() override {
    std::printf("%d saves failed. All or nothing was written but for %d, which said so.\n", Failed,
                Torn);
  }
  [[nodiscard]] bool Says(const std::string& words) const {
    return !session.Messages.empty() && session.Messages.back().find(words) != std::string::npos;
  }
  [[nodiscard]] bool Exists(const std::string& name) const {
    return std::filesystem::exists(session.Folder.Path / name);
  }
  // An empty content stands for no file.
  void Put(const std::string& name, const std::string& content) const {
    std::filesystem::remove(session.Folder.Path / name);
    if (!content.empty()) session.Folder.Put(name, content);
  }

  void FailEveryStep(const std::string& name, const std::string& old,
                     const std::function<void()>& save) {
    session.Choice = session.File(name);
    session.Told();
    Put(name, old);
    save();
    const std::string saved = session.Folder.Get(name);
    EXPECT_NE(saved, old);
    for (const bool forGood : {false, true}) {
      bool failed = true;
      for (int at = 0; failed; ++at) {
        SCOPED_TRACE(name + " step " + std::to_string(at) + (forGood ? " and on" : ""));
        Put(name, old);
        session.Told();
        int steps = 0;
        InjectedFault = [&](FileStep, std::size_t&) {
          const int step = steps++;
          return step == at || (forGood && step > at) ? std::make_error_code(std::errc::io_error)
                                                      : std::error_code();
        };
        save();
        InjectedFault = nullptr;
        ASSERT_GT(steps, 0);
        failed = at < steps;
        const std::string& wanted = failed ? old : saved;
        const bool torn = session.Folder.Get(name) != wanted || Exists(name) == wanted.empty();
        EXPECT_EQ(Says(name.substr(name.find('/') + 1) + " could not be saved: "), failed);
        // Nothing can be put back where every later step fails as well.
        EXPECT_EQ(torn, forGood && (Says("Use your backup.") || Says("Do not use it.")));
        Failed += failed;
        Torn += torn;
      }
    }
  }
};

TEST_F(SaveFault, OfTheTables) {
  const auto choose = [this](MenuItem& command) {
    TablesDirty = true;
    session.Menu(command);
    EXPECT_EQ(TablesDirty, Says("Error: "));
  };
  const std::string exe = session.Folder.Get("CC4.EXE");
  StrMap[0].Left = MapHotspots[42].CenterY = 1;
  for (const std::string& old : {exe.substr(0, 1150000), exe, exe + "more"})
    FailEveryStep("CC4.EXE", old, [&] { choose(session.Main.mnuFileSave); });
  for (const std::size_t length : {0U, 5U, 11212U, 11213U})
    FailEveryStep("p.crv", std::string(length, '#'),
                  [&] { choose(session.Main.mnuFileSavePatch); });
}

TEST_F(SaveFault, OfABtdFile) {
  bool closes = false;
  session.Within<dlgEditBTD>(session.Main.cmdEditBTD, [&](dlgEditBTD& dialog) {
    Session::Type(dialog.txtFileName, "new");
    dialog.QueryUnload = [&] { return closes = true, false; };
    for (const std::size_t length : {0U, 5U, 8526U, 8527U}) {
      FailEveryStep("Maps/new.btd", std::string(length, '#'), [&] {
        closes = false;
        VLDest(0, 0) = 77;
        dlgEditBTD::VLText = {};
        Press(dialog.OKButton);
        EXPECT_EQ(closes, !Says("Error: "));
        EXPECT_EQ(closes, VLDest(0, 0) != 77);
        EXPECT_EQ(closes, dlgEditBTD::VLText != BtdText{});
      });
    }
  });
}
