// Pipes, links, case-sensitive names and Wine prefixes, which Windows does not have.
#include <sys/resource.h>
#include <sys/stat.h>

#include "TestFolder.h"
#include "base/FolderScan.h"
#include "base/Registry.h"
#include "data/GameFolder.h"
#include "data/MapCatalogue.h"
#include "data/TableImages.h"
#include "posix/WineRegistry.h"

using namespace corvane;

// The tests never read the home folder of the user who runs them.
struct NoHome : testing::Environment {
  void SetUp() override { ::setenv("HOME", "/nowhere", 1); }
};
static const testing::Environment* const WithoutHome =
    testing::AddGlobalTestEnvironment(new NoHome);

// The view of 32-bit programs takes precedence.
static const std::string Key =
    R"([Software\\Wow6432Node\\Strategic Simulations Inc.\\Close Combat\\4.00] 9
#time=1
"InstalledTo"=)";

TEST(PosixFiles, LinksAreFollowedAndPipesDoNotBlock) {
  const TestFolder folder;
  folder.Put("map");
  ASSERT_EQ(::mkfifo((folder / "pipe.btd").c_str(), 0600), 0);
  for (const char* target : {"map", "pipe.btd", "nowhere", "."})
    std::filesystem::create_symlink(target,
                                    folder.Path / ("." + std::string(target) + "-link.btd"));
  const auto openFiles = [] {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
  };
  const auto openBefore = openFiles();
  for (const char* name : {"pipe.btd", ".pipe.btd-link.btd", "..-link.btd"}) {
    std::byte byte{};
    const ReadRange range{0, {&byte, 1}};
    EXPECT_FALSE(ReadRanges(folder / name, {&range, 1}).Done()) << name;
    EXPECT_FALSE(ReadRanges(folder / name, {}).Done()) << name << " without ranges";
    for (const auto missing : {IfMissing::Fail, IfMissing::Create})
      EXPECT_TRUE(MessageOf(SaveBytes(folder / name, "x", missing)).ends_with(" unchanged."))
          << name;
  }
  EXPECT_NE(MessageOf(ReadRanges(folder / "pipe.btd", {})).find("it is not an ordinary file"),
            std::string::npos);
  const auto running = SaveInPlace("/proc/self/exe", {}, IfMissing::Fail);
  EXPECT_NE(MessageOf(running).find("while it runs). The file is unchanged."), std::string::npos);
  std::vector<std::string> names;
  EXPECT_FALSE(ScanFolder(folder.Path.string(), ".btd", 9, names));
  EXPECT_EQ(names, std::vector<std::string>{".map-link.btd"});
  EXPECT_EQ(openFiles(), openBefore);
}

TEST(PosixFiles, ASizeLimitFailsASaveWithoutEndingTheProgram) {
  const TestFolder folder;
  folder.Put("f", "old bytes");
  rlimit before{};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
  const rlimit limit{4, before.rlim_max};
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
  const std::string message = MessageOf(SaveBytes(folder / "f", "new bytes"));
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
  EXPECT_TRUE(message.ends_with("The file is unchanged.")) << message;
  EXPECT_EQ(folder.Get("f"), "old bytes");
}

// A home folder with a prefix that has the game in C:\SSI\CC4.
struct WineRegistry : testing::Test {
  WineRegistry() {
    ::setenv("HOME", Home.Path.c_str(), 1);
    Home.Put(".wine/drive_c/Ssi/cc4/CC4.EXE");
    std::filesystem::create_directory(Home.Path / ".wine/dosdevices");
    std::filesystem::create_symlink("../drive_c", Home.Path / ".wine/dosdevices/c:");
  }
  using Value = std::optional<std::string>;
  // The value read if the 32-bit view of the key has it in this form.
  Value Read(const std::string& form) const {
    Home.Put(".wine/system.reg", Key + form + R"(
[SOFTWARE\\strategic simulations inc.\\close combat\\4.00]
 "INSTALLEDTO" = "twin"
[x]
"InstalledTo"="x")");
    return ReadInstallPath();
  }
  const TestFolder Home;
};

static const std::string Escapes = R"("\x00412\x4e2d\1012\1\"\t\q\xg\\\xe000\x0800")";

TEST_F(WineRegistry, ReadsEveryFormOfAText) {
  EXPECT_EQ(ReadInstallPath(), std::nullopt);
  const std::pair<std::string, Value> rows[] = {
      {R"("")", ""},
      {R"("one\0two")", "one"},
      {R"("cut)", "twin"},
      {"\"\xC3\xA4\xFF\uFFFF\U00010000😀\"", "ä?\uFFFF\U00010000😀"},
      {Escapes, "A2中A2\1\"\tqxg\\\uE000\u0800"},
      {R"("\xd800\xd800\xdc00\xdc00\xdfff\xdbff\xdfff")", "?\U00010000??\U0010FFFF"},
      {R"(str(2):"%x%")", "%x%"},
      {"dword:444342410", "ABCD"},
      {"hex(1):41, 00,e4,00,7", "Aä"},
      {"hex(2):41,\\\n  00,2d,4e", "A中"},
      {"hex(a0):80", "€"},
      {"hex(7):41,00", "A"},
      {"hex(g):80", "twin"},
      {"hex:41,e4,00,42", "Aä"},
      {"hex:41,\\", "twin"}};
  for (const auto& [form, value] : rows) EXPECT_EQ(Read(form), value) << form;
}

TEST_F(WineRegistry, RejectsTooLongValues) {
  const std::string wide(1023, 'w');
  std::string hex = "hex(1):77,00";
  for (int i = 1; i < 1024; ++i) hex += i % 16 ? ",77,00" : ",77,\\\r\n  00";
  EXPECT_EQ(Read('"' + wide + "w\""), std::nullopt);
  EXPECT_EQ(Read(hex), wide + 'w');
  EXPECT_EQ(Read(hex + ",77,00"), std::nullopt);
  EXPECT_EQ(Read('"' + wide + '"'), wide);
  std::filesystem::resize_file(Home.Path / ".wine/system.reg", (16 << 20) + 1);
  EXPECT_EQ(ReadInstallPath(), std::nullopt) << "of a huge file";
}

TEST_F(WineRegistry, ConvertsWindowsPathsToFolders) {
  const std::string drives = Home / ".wine/dosdevices/";
  const std::pair<const char*, std::string> rows[] = {
      {R"("C:")", drives + "c:"},
      {R"("C:\\SSI\\CC4")", drives + "c:/Ssi/cc4"},
      {R"("c:\\ssi\\\\cc4\\")", drives + "c:/Ssi//cc4/"},
      {R"("C:\\SSI\\No\\CC4")", drives + "c:/Ssi/No/CC4"},
      {R"("Z:/a")", drives + "z:/a"},
      {R"("A:")", drives + "a:"},
      {R"("a:")", drives + "a:"},
      {R"("@:")", "@:"}};
  for (const auto& [form, folder] : rows) EXPECT_EQ(Read(form), folder) << form;
}

TEST_F(WineRegistry, IsNotReadWithoutAHome) {
  EXPECT_TRUE(Read(R"("C:")"));
  ::unsetenv("HOME");
  EXPECT_EQ(ReadInstallPath(), std::nullopt);
}

TEST_F(WineRegistry, FindsNoTruncatedValue) {
  const std::string view = R"(Software\Wow6432Node\Strategic Simulations Inc.\Close Combat\4.00\)";
  const std::string whole = Key + Escapes;
  ASSERT_TRUE(FindRegistryValue(whole, view, InstallValue));
  for (std::size_t size = 0; size < whole.size(); ++size)
    EXPECT_FALSE(FindRegistryValue(whole.substr(0, size), view, InstallValue)) << size;
  EXPECT_FALSE(FindRegistryValue(Key + "hex:41,\\", view, InstallValue));
}

TEST(PosixFiles, ANewFileHasThePermissionsThatTheUmaskLeaves) {
  const TestFolder folder;
  const mode_t before = ::umask(027U);
  EXPECT_EQ(MessageOf(SaveBytes(folder / "f", "new", IfMissing::Create)), "");
  ::umask(before);
  EXPECT_EQ(std::filesystem::status(folder / "f").permissions(), std::filesystem::perms(0640));
}

TEST(PosixFiles, AFailedSaveThroughALinkNamesBothAndKeepsTheLink) {
  const TestFolder folder;
  folder.Put("target", "old");
  std::filesystem::create_symlink("target", folder / "link");
  FailFrom(3);
  const std::string message = MessageOf(SaveBytes(folder / "link", "new"));
  InjectedFault = nullptr;
  EXPECT_TRUE(message.starts_with(folder / "link" + " (a link to target) could not be saved: "))
      << message;
  EXPECT_EQ(MessageOf(SaveBytes(folder / "link", "new")), "");
  EXPECT_EQ(std::filesystem::read_symlink(folder / "link"), "target");
  EXPECT_EQ(folder.Get("target"), "new");
}

TEST(PosixFiles, NamesMatchInEveryAlphabet) {
  const std::pair<const char*, const char*> rows[] = {
      {"Карта.btd", "кАРТА.BTD"},   {"Ёлка.btd", "ёлка.btd"},     {"άλφα.btd", "ΆΛΦΑ.btd"},
      {"Ωμέγας.btd", "ωμέγαΣ.btd"}, {"Évêché.btd", "éVÊCHÉ.btd"}, {"Łódź.btd", "łÓDŹ.btd"},
      {"карты.btd", "карта.btd"}};
  for (const auto& [onDisk, asked] : rows) {
    const TestFolder folder;
    folder.Put(onDisk);
    const bool matches = asked != std::string("карта.btd");
    EXPECT_EQ(NameInFolder(folder.Path.string(), asked), matches ? onDisk : asked);
  }
}

TEST(GameFolderPosix, UsesTheInstalledGameForAPatchFile) {
  const TestFolder home;
  const auto open = [&](const char* name) { return OpenTables(home / name, name); };
  ::setenv("HOME", home.Path.c_str(), 1);
  home.Put("my.CRV", "\7");
  GamePath = "before";
  OpenedFile = "CC4.EXE";
  EXPECT_EQ(*open("my.CRV"), FileKind::NoInstallPath);
  home.Put(".wine/system.reg", Key + R"("C:\\Games")");
  EXPECT_FALSE(open("gone.crv").Done());
  EXPECT_EQ(GamePath, "before");
  EXPECT_EQ(OpenedFile, "CC4.EXE");
  EXPECT_EQ(*open("my.CRV"), FileKind::PatchFile);
  EXPECT_EQ(StrMap[0].Word0, 7);
  EXPECT_EQ(GamePath, home / ".wine/dosdevices/c:/Games");
  EXPECT_EQ(OpenedFile, "my.CRV");
}

TEST(GameFolderPosix, PrefersTheSpellingInUse) {
  const TestFolder folder;
  for (const char* name : {"CC4.EXE", "cc4.EXE", "maps/Map", "maps/map", "maps/mAp", "maps/xMAP"})
    folder.Put(name);
  GamePath = folder.Path.string();
  EXPECT_EQ(GameExePath(), folder / "CC4.EXE");
  OpenedFile = "cc4.EXE";
  EXPECT_EQ(GameExePath(), folder / "cc4.EXE");
  const char* const rows[][3] = {{"map", "Map", "map"}, {"MAP", "mAp", "mAp"},
                                 {"MAP", "maP", "Map"}, {"MAP", "xMAP", "Map"},
                                 {"MAP", "", "Map"},    {"MA", "Map", "MA"}};
  for (const auto& [name, listed, found] : rows)
    EXPECT_EQ(BtdPath(name, listed), folder / "maps/" + found) << name << listed;
  GamePath = folder / "CC4.EXE";
  EXPECT_EQ(LoadMapCatalogue().Failures.at(0).Reason, std::errc::not_a_directory);
}
