// The floor of corvane-tool: a process that reads only what a check of a game reads. Its argument
// is the game's folder. Given the name and size of a file, it also replaces that file, as drawing
// does. It links only the C library, because loading another would add to its time.
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace {

struct Range {
  off_t Offset;
  std::size_t Size;
};
// The four tables in a CC4.EXE, and the known part of a map file.
constexpr Range Tables[] = {{1147264, 1204}, {1148480, 2268}, {1153780, 7396}, {1200968, 344}};
constexpr Range Map = {0, 8526};

char Bytes[8526];

bool Read(int folder, const char* name, const Range* ranges, std::size_t count) {
  const int file = ::openat(folder, name, O_RDONLY | O_CLOEXEC);
  bool whole = file >= 0;
  for (std::size_t at = 0; whole && at < count; ++at) {
    const auto [offset, size] = ranges[at];
    whole = ::pread(file, Bytes, size, offset) == static_cast<ssize_t>(size);
  }
  ::close(file);
  return whole;
}

bool Replace(const char* name, std::size_t size) {
  char* bytes = static_cast<char*>(std::calloc(size, 1));
  const int file = ::open("new", O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  return bytes != nullptr && ::write(file, bytes, size) == static_cast<ssize_t>(size) &&
         ::fsync(file) == 0 && ::close(file) == 0 && ::rename("new", name) == 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2 || ::chdir(argv[1]) != 0) return 1;
  if (!Read(AT_FDCWD, "CC4.EXE", Tables, 4)) return 1;
  DIR* maps = ::opendir("Maps");
  int count = 0;
  while (const dirent* entry = maps ? ::readdir(maps) : nullptr)
    if (entry->d_name[0] != '.') count += Read(::dirfd(maps), entry->d_name, &Map, 1);
  if (argc > 3 && !Replace(argv[2], std::strtoul(argv[3], nullptr, 10))) return 1;
  return count == 43 ? 0 : 1;
}
