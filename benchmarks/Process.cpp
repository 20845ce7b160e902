#include "Process.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace corvane {
namespace {

struct ProcessResult {
  double Micros = 0;
  int Status = -1;
  struct rusage Used {};
  std::string Printed;
};

[[noreturn]] void Execute(const std::vector<std::string>& command, int output) {
  std::vector<char*> words;
  for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
  words.push_back(nullptr);
  ::dup2(output, STDOUT_FILENO);
  ::execvp(words[0], words.data());
  ::_exit(127);
}

std::string ReadAll(int file) {
  std::string all;
  char bytes[65536];
  for (ssize_t got = 0; (got = ::read(file, bytes, sizeof bytes)) > 0;)
    all.append(bytes, static_cast<std::size_t>(got));
  return all;
}

ProcessResult Run(const std::vector<std::string>& command) {
  ProcessResult result;
  int ends[2];
  Require(::pipe2(ends, O_CLOEXEC) == 0, "creating a pipe");
  result.Micros = Micros(1, [&] {
    const pid_t child = ::fork();
    if (child == 0) Execute(command, ends[1]);
    ::close(ends[1]);
    result.Printed = ReadAll(ends[0]);
    ::wait4(child, &result.Status, 0, &result.Used);
  });
  ::close(ends[0]);
  return result;
}

double CostOf(const ProcessResult& result, Cost cost) {
  char* next = nullptr;
  const double first = std::strtod(result.Printed.c_str(), &next);
  switch (cost) {
    case Cost::Millis:
      return result.Micros / 1000;
    case Cost::PeakMiB:
      return static_cast<double>(result.Used.ru_maxrss) / 1024;
    case Cost::FirstPrinted:
      return first;
    case Cost::SecondPrinted:
      return std::strtod(next, nullptr);
  }
  return 0;
}

}  // namespace

// The child's peak starts at this process's own, which is far smaller: it has no toolkit.
Job ProcessJob(Cost cost, std::vector<std::string> command) {
  return [cost, command = std::move(command)] {
    const ProcessResult result = Run(command);
    const double costs = CostOf(result, cost);
    Require(result.Status == 0 && costs > 0, command[0].c_str());
    return costs;
  };
}

}  // namespace corvane
