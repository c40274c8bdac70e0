#pragma once
// quillmere-cli run as a script runs it, for the tests of its commands.

#include <sys/wait.h>

#include <cstdio>
#include <string>

namespace quillmere::testing {

struct ToolResult {
  int status;
  std::string out;
};

// Runs the tool (QUILLMERE_CLI) with standard error joined to standard output.
inline ToolResult Tool(const std::string& arguments) {
  const std::string command = std::string(QUILLMERE_CLI) + " " + arguments + " 2>&1";
  FILE* p = popen(command.c_str(), "r");
  std::string out;
  char buf[4096];
  for (size_t n; p && (n = fread(buf, 1, sizeof buf, p)) > 0;) out.append(buf, n);
  const int status = p ? pclose(p) : -1;
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, out};
}

}  // namespace quillmere::testing
