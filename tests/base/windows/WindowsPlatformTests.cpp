// What only Windows has: the registry and its views, file attributes, sharing, devices.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>

#include "TestFolder.h"
#include "base/FolderScan.h"
#include "base/RawFile.h"
#include "base/Registry.h"
#include "data/GameFolder.h"

using namespace corvane;

// Returns true if the key is new. The system removes it when it shuts down.
static bool MakeKey(REGSAM view, HKEY& key) {
  DWORD outcome = 0;
  RegCreateKeyExA(HKEY_LOCAL_MACHINE, InstallKey, 0, nullptr, REG_OPTION_VOLATILE,
                  KEY_ALL_ACCESS | view, nullptr, &key, &outcome);
  return outcome == REG_CREATED_NEW_KEY;
}

static void SetValue(HKEY key, DWORD type, const std::string& bytes) {
  const std::string more = bytes + '.';  // a NUL after the bytes would be stored as well
  RegSetValueExA(key, InstallValue, 0, type, reinterpret_cast<const BYTE*>(more.data()),
                 static_cast<DWORD>(bytes.size()));
}

TEST(WindowsRegistry, ReadsEveryFormInTheViewOf32BitPrograms) {
  const std::string nul(1, '\0'), wide(1023, 'w');
  // clang-format off
  const std::tuple<DWORD, std::string, std::optional<std::string>> rows[] = {
      {REG_SZ, "C:\\CC4\\" + nul, "C:\\CC4\\"}, {REG_SZ, "a" + nul + "b" + nul, "a"},
      {REG_EXPAND_SZ, "%OS%" + nul, "%OS%"}, {REG_DWORD, "AB" + nul + nul, "AB"},
      {REG_BINARY, "\xD6\x80", "Ö€"}, {REG_BINARY, "", ""},
      {REG_SZ, wide + nul, wide}, {REG_BINARY, wide + 'w', wide + 'w'},
      {REG_SZ, wide + 'w' + nul, std::nullopt}, {REG_BINARY, wide + "ww", std::nullopt}};
  // clang-format on
  HKEY key = nullptr, twin = nullptr;
  if (!MakeKey(KEY_WOW64_32KEY, key))
    GTEST_SKIP() << "A game is installed, or the user is not an administrator.";
  const bool hasTwin = MakeKey(KEY_WOW64_64KEY, twin);  // false if there is only one view
  if (hasTwin) SetValue(twin, REG_SZ, "twin");
  for (const auto& [type, bytes, value] : rows) {
    SetValue(key, type, bytes);
    EXPECT_EQ(ReadInstallPath(), value) << type << bytes.substr(0, 9);
  }
  RegDeleteKeyExA(HKEY_LOCAL_MACHINE, InstallKey, KEY_WOW64_32KEY, 0);
  EXPECT_EQ(ReadInstallPath(), std::nullopt);
  if (hasTwin) RegDeleteKeyExA(HKEY_LOCAL_MACHINE, InstallKey, KEY_WOW64_64KEY, 0);
}

TEST(WindowsFiles, AreFoundUnlessHiddenAndOpenedUnlessInUse) {
  const TestFolder folder;
  const std::string path = folder.Path.string(), file = path + "\\中ü.BTD";
  for (const auto& [name, mark] : {std::pair("hidden.btd", 2UL), {"system.btd", 4UL}}) {
    folder.Put(name);
    SetFileAttributesA((folder / name).c_str(), mark);
  }
  RawFile writer, reader, other;
  for (const char* missing : {"\\x.btd", "\\x\\x.btd"})
    EXPECT_EQ(other.Open(path + missing, OpenMode::Read), std::errc::no_such_file_or_directory);
  ASSERT_FALSE(writer.Open(file, OpenMode::Create));
  ASSERT_FALSE(reader.Open(file, OpenMode::Read));
  char program[MAX_PATH] = {};
  GetModuleFileNameA(nullptr, program, MAX_PATH);
  for (const std::string& used : {file, std::string(program)})
    EXPECT_TRUE(ReasonText(other.Open(used, OpenMode::Change)).ends_with("while it runs)")) << used;
  for (const auto mode : {OpenMode::Read, OpenMode::Change, OpenMode::Create}) {
    EXPECT_TRUE(other.Open("NUL", mode));
    EXPECT_EQ(other.Open(path, mode), std::errc::is_a_directory);
  }
  EXPECT_TRUE(isalpha(ReasonText(other.Open(path + "\\x", OpenMode::Read)).back())) << "no period";
  EXPECT_TRUE(OrdinaryFileExists(file));
  EXPECT_FALSE(OrdinaryFileExists(folder / "hidden.btd"));
  std::vector<std::string> names;
  EXPECT_FALSE(ScanFolder(path, ".btd", 9, names));
  EXPECT_EQ(names, std::vector<std::string>{"中ü.BTD"});
  EXPECT_EQ(NameInFolder(path, "中Ü.btd"), "中Ü.btd") << "the system finds it by itself";
}

TEST(WindowsFiles, ThatWindowsProtectsComeWithAdvice) {
  char programs[MAX_PATH] = {};
  ASSERT_NE(GetEnvironmentVariableA("ProgramFiles", programs, MAX_PATH), 0U);
  std::string capitals = programs;
  std::ranges::transform(capitals, capitals.begin(), [](char c) { return toupper(c); });
  const std::error_code denied(ERROR_ACCESS_DENIED, std::system_category());
  const std::error_code gone(ERROR_FILE_NOT_FOUND, std::system_category());
  const std::tuple<std::string, std::error_code, bool> rows[] = {
      {std::string(programs) + "\\CC4\\CC4.EXE", denied, true},
      {capitals + "\\x", denied, true},
      {std::string(programs) + "\\x", gone, false},
      {"C:\\CC4\\CC4.EXE", denied, false},
      {"", denied, false}};
  for (const auto& [path, error, helps] : rows) {
    const std::string reason = ReasonText(error, path);
    EXPECT_EQ(reason.find("start Corvane as administrator") != reason.npos, helps) << path;
  }
}

TEST(WindowsFiles, VerbatimPathsAreOpenedSavedAndListed) {
  const TestFolder folder;
  folder.Put("Maps/f.btd", "old bytes");
  const std::string verbatim = "\\\\?\\" + std::filesystem::absolute(folder.Path).string();
  const std::string file = verbatim + "\\Maps\\f.btd";
  EXPECT_EQ(MessageOf(SaveBytes(file, "new")), "");
  EXPECT_EQ(folder.Get("Maps/f.btd"), "new bytes");
  EXPECT_EQ(MessageOf(SaveBytes(verbatim + "\\Maps\\g.btd", "new", IfMissing::Create)), "");
  std::string text(9, '.');
  const ReadRange whole{0, std::as_writable_bytes(std::span(text))};
  EXPECT_EQ(MessageOf(ReadRanges(file, {&whole, 1})), "");
  EXPECT_EQ(text, "new bytes");
  std::vector<std::string> names;
  EXPECT_FALSE(ScanFolder(verbatim + "\\Maps", ".btd", 9, names));
  EXPECT_EQ(names.size(), 2U);
  EXPECT_TRUE(OrdinaryFileExists(file));
}

TEST(WindowsNames, StayInTheirFolderAndNameNoDevice) {
  for (const char* name : {"../x", "..\\x", "c:x", "x:y", "", "..", "NUL", "nul.btd", "COM1.btd",
                           "lpt9 .btd", "CON.a.btd", "COM\u00B9.btd"})
    EXPECT_FALSE(IsFileName(name)) << name;
  for (const char* name :
       {"x.btd", ".btd", "COMA.btd", "COM10.btd", "NULL.btd", "xcon.btd", "中.btd"})
    EXPECT_TRUE(IsFileName(name)) << name;
}

TEST(WindowsNames, AVerbatimFolderGetsNoSecondSeparator) {
  EXPECT_EQ(JoinPath("\\\\?\\C:\\g\\", "x"), "\\\\?\\C:\\g\\x");
  EXPECT_EQ(JoinPath("\\\\?\\C:\\g", "x"), "\\\\?\\C:\\g\\x");
  EXPECT_EQ(JoinPath("C:\\g\\", "x"), "C:\\g\\\\x");
}
