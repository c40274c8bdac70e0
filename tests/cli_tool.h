#pragma once
// quillmere-cli run as a script runs it, for the tests of its commands.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

namespace quillmere::testing {

struct ToolResult {
  int status;
  std::string out;
  std::string err;
};

// Runs the tool (QUILLMERE_CLI). Standard error joins standard output, unless `apart`: then it
// goes to `err`, through a file of this process's own (ctest runs the tests side by side).
inline ToolResult Tool(const std::string& arguments, bool apart = false) {
  const std::string errFile = ::testing::TempDir() + "cli_err_" + std::to_string(getpid());
  const std::string command =
      std::string(QUILLMERE_CLI) + " " + arguments + (apart ? " 2>" + errFile : " 2>&1");
  FILE* p = popen(command.c_str(), "r");
  ToolResult r{-1, "", ""};
  char buf[4096];
  for (size_t n; p && (n = fread(buf, 1, sizeof buf, p)) > 0;) r.out.append(buf, n);
  const int status = p ? pclose(p) : -1;
  r.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  if (apart) {
    std::ifstream err(errFile);
    r.err.assign(std::istreambuf_iterator<char>(err), std::istreambuf_iterator<char>());
    std::remove(errFile.c_str());
  }
  return r;
}

}  // namespace quillmere::testing
