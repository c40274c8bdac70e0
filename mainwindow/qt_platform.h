#pragma once
// The real clock, settings store and message boxes.

#include <QSettings>
#include <functional>
#include <map>
#include <memory>
#include <tuple>

#include "mainwindow/platform.h"
#include "stormmodel/settings_store.h"

class QWidget;

namespace quillmere {

class SystemClock : public Clock {
 public:
  double LocalNow() override;
  TimeZoneInformation GetTimeZoneInformation() override;
};

// QSettings in INI format, one file per application name: on Linux
// $XDG_CONFIG_HOME/Quillmere/<application>.ini. Section names match without regard to case.
class IniSettings : public SettingsStore {
 public:
  // `directory` empty: the platform's user configuration folder.
  explicit IniSettings(std::string directory = {});
  std::string GetSetting(const std::string& application, const std::string& section,
                         const std::string& key, const std::string& fallback) const override;
  void SaveSetting(const std::string& application, const std::string& section,
                   const std::string& key, const std::string& value) override;
  // The file that holds the settings of `application`.
  std::string FileName(const std::string& application) const;

  // Given, once, the sentence the user must hear when a change could not be written.
  std::function<void(const std::string& notice)> onSaveFailure;

 private:
  using Key = std::tuple<std::string, std::string, std::string>;
  static Key UnsavedKey(const std::string& application, const std::string& section,
                        const std::string& key);
  std::unique_ptr<QSettings> Open(const std::string& application) const;
  // The group as it stands in the file, whatever its case; `section` when there is none.
  static QString StoredGroup(QSettings& settings, const std::string& section);
  std::string directory_;
  // Changes the file could not take: they still count until the program closes, and go with the
  // next change that can be written.
  struct Change {
    std::string section;
    std::string value;
  };
  std::map<Key, Change> unsaved_;
  bool saveFailureTold_ = false;
};

class DialogMessageBoxes : public MessageBoxes {
 public:
  explicit DialogMessageBoxes(QWidget* parent = nullptr) : parent_(parent) {}
  void Show(const std::string& title, const std::string& text) override;

 private:
  QWidget* parent_;
};

}  // namespace quillmere
