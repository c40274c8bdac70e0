#pragma once
// The real clock, settings store and message boxes.

#include <QSettings>
#include <memory>

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

 private:
  std::unique_ptr<QSettings> Open(const std::string& application) const;
  // The group as it stands in the file, whatever its case; `section` when there is none.
  static QString StoredGroup(QSettings& settings, const std::string& section);
  std::string directory_;
};

class DialogMessageBoxes : public MessageBoxes {
 public:
  explicit DialogMessageBoxes(QWidget* parent = nullptr) : parent_(parent) {}
  void Show(const std::string& title, const std::string& text) override;

 private:
  QWidget* parent_;
};

}  // namespace quillmere
