// What only systems with pipes, links, letter case and Wine prefixes have.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "../TemporaryFolder.h"
#include "platform/FolderScan.h"
#include "platform/InstallRegistry.h"
#include "platform/posix/WineRegistry.h"

using namespace corvane;

TEST(PosixFiles, PipesDoNotHangAndNamesMatchInAnyCase) {
  const TemporaryFolder folder;
  for (const char* name : {"Map", "map", "mAp", "xMAP"}) folder.Put(name);
  ASSERT_EQ(::mkfifo((folder / "pipe.btd").c_str(), 0600), 0);
  for (const char* target : {"map", "pipe.btd", "nowhere", "."})
    std::filesystem::create_symlink(target,
                                    folder.Path / ("." + std::string(target) + "-link.btd"));
  RawFile file;
  for (const char* name : {"pipe.btd", ".pipe.btd-link.btd", "..-link.btd"})
    for (const auto mode : {OpenMode::Read, OpenMode::Change, OpenMode::Create})
      EXPECT_TRUE(file.Open(folder / name, mode)) << name;
  const auto running = file.Open("/proc/self/exe", OpenMode::Change);
  EXPECT_TRUE(Reason(running).ends_with("while it runs)")) << running;
  std::vector<std::string> names;
  EXPECT_FALSE(ScanFolder(folder.Path.string(), ".btd", 9, names));
  EXPECT_EQ(names, std::vector<std::string>{".map-link.btd"});
  const char* const rows[][3] = {{"map", "Map", "map"}, {"MAP", "mAp", "mAp"},
                                 {"MAP", "maP", "Map"}, {"MAP", "xMAP", "Map"},
                                 {"MAP", "", "Map"},    {"MA", "Map", "MA"}};
  for (const auto& [name, preferred, found] : rows)
    EXPECT_EQ(NameInFolder(folder.Path.string(), name, preferred), found) << name << preferred;
}

TEST(WineRegistry, ReadsEveryFormAndTurnsPathsIntoFolders) {
  const std::string key = R"([Software\\Strategic Simulations Inc.\\Close Combat\\4.00] 9
#time=1
"InstalledTo"=)";
  const std::string twin = R"(
[SOFTWARE\\wow6432node\\strategic simulations inc.\\close combat\\4.00]
"INSTALLEDTO"="twin"
[x]
"InstalledTo"="x")";
  const TemporaryFolder home;
  ::setenv("HOME", home.Path.c_str(), 1);
  EXPECT_EQ(ReadInstalledTo(), std::nullopt);
  home.Put(".wine/drive_c/Ssi/cc4/CC4.EXE");
  std::filesystem::create_directory(home.Path / ".wine/dosdevices");
  std::filesystem::create_symlink("../drive_c", home.Path / ".wine/dosdevices/c:");
  const std::string drive = home / ".wine/dosdevices/c:", wide(1023, 'w');
  std::string hex = "hex(1):77,00";
  for (int i = 1; i < 1024; ++i) hex += i % 16 ? ",77,00" : ",77,\\\r\n  00";
  const std::string escapes = R"("\x00412\x4e2d\xd83d\xde00\xd83d\1012\1\"\t\q\xg\\")";
  // clang-format off
  const std::pair<std::string, std::optional<std::string>> rows[] = {
      {R"("")", ""}, {R"("one\0two")", "one"}, {R"("cut)", "twin"}, {"\"\xC3\xA4\xFF\"", "ä?"},
      {escapes, "A2中😀?A2\1\"\tqxg\\"}, {R"(str(2):"%x%")", "%x%"}, {"dword:00004241", "AB"},
      {"hex(1):41,00,e4,00,7", "Aä"}, {"hex(2):41,\\\n  00,42,00", "AB"}, {"hex(a0):80", "€"},
      {"hex:41,e4,00,42", "Aä"}, {"hex:41,\\", "twin"}, {'"' + wide + '"', wide},
      {'"' + wide + "w\"", std::nullopt}, {hex, wide + 'w'}, {hex + ",77,00", std::nullopt},
      {R"("C:")", drive},
      {R"("C:\\SSI\\CC4")", drive + "/Ssi/cc4"}, {R"("c:\\ssi\\\\cc4\\")", drive + "/Ssi//cc4/"},
      {R"("C:\\SSI\\No\\CC4")", drive + "/Ssi/No/CC4"},
      {R"("Q:/a")", home / ".wine/dosdevices/q:/a"}};
  // clang-format on
  for (const auto& [form, value] : rows) {
    home.Put(".wine/system.reg", key + form + twin);
    EXPECT_EQ(ReadInstalledTo(), value) << form.substr(0, 60);
  }
  for (std::size_t size = 0; size < (key + escapes).size(); ++size)
    EXPECT_FALSE(FindRegistryValue((key + escapes).substr(0, size), InstallKey, InstallValue));
  std::filesystem::resize_file(home.Path / ".wine/system.reg", (256 << 20) + 1);
  EXPECT_EQ(ReadInstalledTo(), std::nullopt) << "of a huge file";
}
