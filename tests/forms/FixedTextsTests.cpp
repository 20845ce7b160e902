// Checks the long texts of the program against a second copy.
#include "Session.h"
#include "rules/ConnectionEditing.h"

using namespace corvane;

static const std::string Instructions =
    "Basic Instructions on using Corvane:\r\n\r\n"
    "WARNING: Use this tool at your own risk. Back up CC4.EXE and all map .btd files. Improper use "
    "will result in a non-functional CC4. If you don't already understand how ScrnGadg.gdg, the "
    "map .btd files, and the strategic layer of CC4 are are related, seek this knowledge elsewhere "
    "before attempting to modify  CC4.EXE with this tool! \r\n\r\n"
    "Before modifying the strategic layer, first place your new set of map .btd files in a Maps "
    "subdirectory under the directory where you have the copy of CC4.EXE you want to modify. Then "
    "open CC4.EXE in Corvane and edit the .btd files, STRMAP, and STRARROW information to match up "
    "your .btd map info, STRMAP tiles, and STRARROWs. You can either save your work to a 'patch "
    "file', which can later be used to patch a standard copy of CC4.EXE, or you can save your "
    "changes directly into the copy of CC4.EXE you opened.";

static const std::string DeleteQuestion =
    "Are you positive you want to delete this map? NOTE: All data associated with this map, along "
    "with all connections to this map from all other maps, will be deleted.  The contents of the "
    "BTD file will also be deleted.";

TEST(FixedTexts, AppearInTheHelpMenuWithoutAGame) {
  Session session(GameFiles(MakeSampleGame()));
  session.Menu(session.Main.mnuHelpBasic);
  session.Menu(session.Main.mnuHelpAbout);
  EXPECT_EQ(session.TakeMessages(), (Texts{Instructions, "Corvane for Close Combat 4"}));
}

TEST(FixedTexts, AppearInTheQuestionBeforeClearingASlot) {
  Session session;
  session.Answer = MessageAnswer::No;
  session.Main.cmdDelete.Click();
  EXPECT_EQ(session.TakeMessages(), Texts{DeleteQuestion});
}

TEST(FixedTexts, AppearInTheNoteOfAddConnection) {
  EXPECT_STREQ(dlgAddConnection(0).Label2.Caption,
               "NOTE: You must have a reciprocating link from the destination back to this map.  "
               "You must also edit the BTD files and set up a Victory Location on each map to "
               "represent the link.");
}

TEST(FixedTexts, AppearInTheQuestionBeforeDeletingAConnection) {
  EXPECT_EQ(ConnectionDeletePrompt("000 A.btd", "001 B.btd"),
            "Are you sure you want to delete the connection from map 000 A.btd to map 001 B.btd?  "
            "Note: You must manually delete the connection in the opposite direction, if one "
            "exists. The victory location that represents this connection will not be deleted. "
            "Edit the BTD file to correct the victory location.");
}
