// The user's Quillmere folder and where the data files are found, tried on a made-up home.

#include "folders/folders.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "storm_test_support.h"

namespace quillmere {
namespace {
namespace fs = std::filesystem;

class Folders : public ::testing::Test {
 protected:
  void SetUp() override {
    // A folder no other test process can have: ctest runs them side by side.
    root = testing::MakeUniqueDir("quillmere-folders-");
    fs::create_directories(root / "home");
    env.home = (root / "home").string();
  }
  void TearDown() override {
    std::error_code ec;
    fs::remove_all(root, ec);
  }
  void UserDirs(const std::string& text) {
    fs::create_directories(root / "home/.config");
    std::ofstream(root / "home/.config/user-dirs.dirs") << text;
  }
  std::string Home(const std::string& rest) { return env.home + rest; }

  fs::path root;
  FolderEnvironment env;
};

TEST_F(Folders, DocumentsFolderAndUserFolder) {
  const struct {
    const char* userDirs;      // the file's text; nullptr: no file
    const char* variable;      // $XDG_DOCUMENTS_DIR
    const char* platform;      // the system's documents folder
    const char* expectedRest;  // after the home folder, or a whole path when it starts with "!"
  } cases[] = {
      {nullptr, "", "", "/Documents/Quillmere"},
      {"XDG_DOCUMENTS_DIR=\"$HOME/Dokumente\"\n", "", "", "/Dokumente/Quillmere"},
      {"# comment\nXDG_DESKTOP_DIR=\"$HOME/Desk\"\n  XDG_DOCUMENTS_DIR=\"/srv/docs\"\n", "", "",
       "!/srv/docs/Quillmere"},
      {"XDG_DOCUMENTS_DIR=\"$HOME/My\\ Files\"\n", "", "", "/My Files/Quillmere"},
      // A documents folder switched off is the home folder itself.
      {"XDG_DOCUMENTS_DIR=\"$HOME/\"\n", "", "", "/Quillmere"},
      {"XDG_DOCUMENTS_DIR=\"$HOME\"\n", "", "", "/Quillmere"},
      // Lines the format does not allow are passed over.
      {"XDG_DOCUMENTS_DIR=relative\nXDG_DOCUMENTS_DIR=\"docs\"\nXDG_DOCUMENTS_DIR=\"$HOMEX\"\n"
       "XDG_DOCUMENTS_DIR=\"$HOME/open\n",
       "", "", "/Documents/Quillmere"},
      {"XDG_DOCUMENTS_DIR=\"$HOME/A\"\nXDG_DOCUMENTS_DIR=\"$HOME/B\"\n", "", "", "/B/Quillmere"},
      {"XDG_DOCUMENTS_DIR=\"$HOME/Dokumente\"\n", "/data/mine/", "", "!/data/mine/Quillmere"},
      {nullptr, "not/absolute", "", "/Documents/Quillmere"},
      {"XDG_DOCUMENTS_DIR=\"$HOME/Dokumente\"\n", "/data/mine", "C:\\Users\\ann\\Documents",
       "!C:\\Users\\ann\\Documents/Quillmere"},
  };
  for (const auto& c : cases) {
    fs::remove_all(root / "home/.config");
    if (c.userDirs) UserDirs(c.userDirs);
    env.xdgDocumentsDir = c.variable;
    env.platformDocuments = c.platform;
    const std::string expected =
        c.expectedRest[0] == '!' ? std::string(c.expectedRest + 1) : Home(c.expectedRest);
    EXPECT_EQ(UserFolder(env), expected) << (c.userDirs ? c.userDirs : "no file");
  }
}

TEST_F(Folders, UserDirsFollowsXdgConfigHome) {
  UserDirs("XDG_DOCUMENTS_DIR=\"$HOME/Home config\"\n");
  fs::create_directories(root / "config");
  std::ofstream(root / "config/user-dirs.dirs") << "XDG_DOCUMENTS_DIR=\"$HOME/Elsewhere\"\n";
  env.xdgConfigHome = (root / "config").string();
  EXPECT_EQ(UserFolder(env), Home("/Elsewhere/Quillmere"));
}

TEST_F(Folders, NoHomeAtAll) {
  env.home.clear();
  EXPECT_EQ(UserFolder(env), "");
  const PreparedFolder prepared = PrepareUserFolder(env);
  EXPECT_EQ(prepared.path, ".");
  EXPECT_NE(prepared.notice, "");
}

TEST_F(Folders, MadeAtFirstStartThenSilent) {
  const PreparedFolder first = PrepareUserFolder(env);
  EXPECT_EQ(first.path, Home("/Documents/Quillmere"));
  EXPECT_EQ(first.notice, "");
  EXPECT_TRUE(fs::is_directory(first.path));
  std::ofstream(fs::path(first.path) / "mine.txt") << "kept";
  const PreparedFolder again = PrepareUserFolder(env);
  EXPECT_EQ(again.path, first.path);
  EXPECT_EQ(again.notice, "");
  EXPECT_TRUE(fs::exists(fs::path(first.path) / "mine.txt"));
}

TEST_F(Folders, FolderThatCannotBeMadeFallsBackToHome) {
  // A file where the documents folder should be stops it, even for root.
  std::ofstream(root / "home/Documents") << "not a folder";
  const PreparedFolder prepared = PrepareUserFolder(env);
  EXPECT_EQ(prepared.path, env.home);
  EXPECT_NE(prepared.notice.find(Home("/Documents/Quillmere")), std::string::npos)
      << prepared.notice;
  EXPECT_NE(prepared.notice.find("home folder, " + env.home), std::string::npos);
  // The same with a file of the folder's own name.
  fs::remove(root / "home/Documents");
  fs::create_directories(root / "home/Documents");
  std::ofstream(root / "home/Documents/Quillmere") << "not a folder";
  EXPECT_EQ(PrepareUserFolder(env).path, env.home);
}

TEST_F(Folders, DataFileOrder) {
  const fs::path user = root / "user", installed = root / "share/quillmere", exe = root / "bin";
  for (const fs::path& p : {user, installed, exe}) fs::create_directories(p);
  const DataFolders folders{user.string(), {installed.string(), exe.string()}};
  const auto put = [](const fs::path& where) {
    std::ofstream(where / "UFMODES.JMF") << "A,1,2,3,4";
  };

  // None holds it: the installed folder, where it belongs.
  EXPECT_EQ(FindDataFile(folders, "UFMODES.JMF"), (installed / "UFMODES.JMF").string());
  put(exe);
  EXPECT_EQ(FindDataFile(folders, "UFMODES.JMF"), (exe / "UFMODES.JMF").string());
  put(installed);
  EXPECT_EQ(FindDataFile(folders, "UFMODES.JMF"), (installed / "UFMODES.JMF").string());
  put(user);
  EXPECT_EQ(FindDataFile(folders, "UFMODES.JMF"), (user / "UFMODES.JMF").string());
  // A folder of that name is no copy.
  fs::create_directories(user / "SpkHlp.txt");
  std::ofstream(exe / "SpkHlp.txt") << "help";
  EXPECT_EQ(FindDataFile(folders, "SpkHlp.txt"), (exe / "SpkHlp.txt").string());

  // A build tree: no installed folder, so a missing file is looked for beside the program.
  const DataFolders build{user.string(), {(root / "nowhere").string(), exe.string()}};
  EXPECT_EQ(FindDataFile(build, "PredictHlp.txt"), (exe / "PredictHlp.txt").string());
}

TEST(InstalledData, SeenFromTheInstalledProgram) {
  EXPECT_EQ(InstalledDataFolder("/usr/bin"), "/usr/share/quillmere");
  EXPECT_EQ(InstalledDataFolder("/opt/q/bin/"), "/opt/q/share/quillmere");
}

}  // namespace
}  // namespace quillmere
