#include "folders/folders.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

#ifndef _WIN32
#include <pwd.h>
#include <unistd.h>
#endif

namespace quillmere {
namespace fs = std::filesystem;

namespace {

std::string Env(const char* name) {
  const char* value = std::getenv(name);
  return value ? std::string(value) : std::string();
}

// A path without a trailing separator, so "$HOME/" and "$HOME" compare equal.
std::string Trimmed(std::string path) {
  while (path.size() > 1 && (path.back() == '/' || path.back() == '\\')) path.pop_back();
  return path;
}

// The value of XDG_DOCUMENTS_DIR in user-dirs.dirs: "$HOME/..." or an absolute path, in double
// quotes, with backslash escapes. Empty when the file or the line is missing or malformed.
std::string DocumentsFromUserDirs(const FolderEnvironment& env) {
  const std::string config = !env.xdgConfigHome.empty() ? env.xdgConfigHome
                             : env.home.empty()         ? ""
                                                        : env.home + "/.config";
  if (config.empty()) return {};
  std::ifstream in(config + "/user-dirs.dirs");
  std::string line;
  std::string found;
  while (std::getline(in, line)) {
    const std::size_t start = line.find_first_not_of(" \t");
    if (start == std::string::npos || line.compare(start, 18, "XDG_DOCUMENTS_DIR=") != 0) continue;
    std::size_t i = start + 18;
    if (i >= line.size() || line[i] != '"') continue;
    std::string value;
    bool closed = false;
    for (++i; i < line.size(); ++i) {
      if (line[i] == '\\' && i + 1 < line.size()) {
        value += line[++i];
      } else if (line[i] == '"') {
        closed = true;
        break;
      } else {
        value += line[i];
      }
    }
    if (!closed) continue;
    if (value.rfind("$HOME", 0) == 0 && (value.size() == 5 || value[5] == '/')) {
      if (env.home.empty()) continue;
      found = env.home + value.substr(5);
    } else if (!value.empty() && value[0] == '/') {
      found = value;
    }
    // The last valid line counts, as when the shell reads the file.
  }
  return found;
}

}  // namespace

FolderEnvironment FolderEnvironment::FromProcess() {
  FolderEnvironment env;
#ifdef _WIN32
  env.home = Env("USERPROFILE");
#else
  env.home = Env("HOME");
  if (env.home.empty()) {
    if (const passwd* pw = getpwuid(getuid()); pw && pw->pw_dir) env.home = pw->pw_dir;
  }
#endif
  env.xdgConfigHome = Env("XDG_CONFIG_HOME");
  env.xdgDocumentsDir = Env("XDG_DOCUMENTS_DIR");
  return env;
}

std::string DocumentsFolder(const FolderEnvironment& env) {
  if (!env.platformDocuments.empty()) return Trimmed(env.platformDocuments);
  if (!env.xdgDocumentsDir.empty() && env.xdgDocumentsDir[0] == '/')
    return Trimmed(env.xdgDocumentsDir);
  if (const std::string named = DocumentsFromUserDirs(env); !named.empty()) return Trimmed(named);
  if (env.home.empty()) return {};
  return Trimmed(env.home) + "/Documents";
}

std::string UserFolder(const FolderEnvironment& env) {
  std::string base = DocumentsFolder(env);
  if (base.empty()) base = Trimmed(env.home);
  if (base.empty()) return {};
  return (base == "/" ? std::string() : base) + "/Quillmere";
}

PreparedFolder PrepareUserFolder(const FolderEnvironment& env) {
  const std::string wanted = UserFolder(env);
  const std::string home = Trimmed(env.home);
  if (wanted.empty())
    return {home.empty() ? std::string(".") : home,
            "There is no home folder, so reports are written in the current folder."};
  std::error_code ec;
  fs::create_directories(wanted, ec);
  if (!ec && fs::is_directory(wanted, ec)) return {wanted, {}};
  const std::string why = ec ? ec.message() : std::strerror(ENOTDIR);
  return {home.empty() ? std::string(".") : home,
          "The Quillmere folder " + wanted + " could not be made: " + why +
              ". Reports are written in your home folder, " + home + ", instead."};
}

std::string InstalledDataFolder(const std::string& executableFolder) {
  return (fs::path(executableFolder) / QUILLMERE_DATA_FROM_BIN).lexically_normal().string();
}

std::string FindDataFile(const DataFolders& folders, const std::string& name) {
  std::error_code ec;
  const auto holds = [&](const std::string& folder) {
    return !folder.empty() && fs::is_regular_file(fs::path(folder) / name, ec);
  };
  const auto in = [&](const std::string& folder) { return (fs::path(folder) / name).string(); };
  if (holds(folders.user)) return in(folders.user);
  for (const std::string& folder : folders.program)
    if (holds(folder)) return in(folder);
  for (const std::string& folder : folders.program)
    if (!folder.empty() && fs::is_directory(folder, ec)) return in(folder);
  if (!folders.program.empty()) return in(folders.program.back());
  return in(folders.user);
}

}  // namespace quillmere
