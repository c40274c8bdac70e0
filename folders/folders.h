#pragma once
// The user's Quillmere folder and the places of the program's own data files.
//
// The user's folder is `Quillmere` inside the documents folder. It is the working directory:
// reports are written there. The mode file and the help files are read from it when the user has
// put a copy there, otherwise from the installed data folder, otherwise from beside the executable
// (a build tree). All inputs come in as plain values, so the rules can be tried on a made-up home.

#include <string>
#include <vector>

namespace quillmere {

// What the rules look at, as the process finds it.
struct FolderEnvironment {
  std::string home;               // the home folder; empty when there is none
  std::string xdgConfigHome;      // $XDG_CONFIG_HOME, where user-dirs.dirs lives; empty: ~/.config
  std::string xdgDocumentsDir;    // $XDG_DOCUMENTS_DIR; empty when not set
  std::string platformDocuments;  // the system's documents folder (Windows, macOS); empty on Linux

  // From the environment variables and, without $HOME, the user database.
  static FolderEnvironment FromProcess();
};

// The documents folder: $XDG_DOCUMENTS_DIR, else the one named in user-dirs.dirs, else
// ~/Documents; the system's own on Windows and macOS. Empty without a home folder.
std::string DocumentsFolder(const FolderEnvironment& env);

// `Quillmere` inside the documents folder (inside the home folder when the documents folder is
// the home folder itself or unknown).
std::string UserFolder(const FolderEnvironment& env);

// The folder reports go to, and what the user must hear about it (empty when all went well).
struct PreparedFolder {
  std::string path;
  std::string notice;
};

// Makes the user's folder when it is missing. When it cannot be made, reports go to the home
// folder, and the notice says so.
PreparedFolder PrepareUserFolder(const FolderEnvironment& env);

// The installed data folder seen from the folder of an installed executable (share/quillmere).
std::string InstalledDataFolder(const std::string& executableFolder);

// Where the program's own files are looked for.
struct DataFolders {
  std::string user;                  // the user's own copies win
  std::vector<std::string> program;  // then these, in order
};

// The path of a data file: the user's copy when there is one, else the first program folder that
// holds it. When none holds it, the name in the first program folder that exists (so a message
// names the place it belongs), else in the last one.
std::string FindDataFile(const DataFolders& folders, const std::string& name);

}  // namespace quillmere
