#include "mainwindow/qt_platform.h"

#include <QDateTime>
#include <QDir>
#include <QStandardPaths>
#include <QTimeZone>

#include "textutil/date_time.h"

namespace quillmere {

double SystemClock::LocalNow() {
  const QDateTime now = QDateTime::currentDateTime();
  const QDate d = now.date();
  const QTime t = now.time();
  return DateSerial(d.year(), d.month(), d.day()).value_or(0) +
         TimeSerial(t.hour(), t.minute(), t.second()) + t.msec() / 86400000.0;
}

TimeZoneInformation SystemClock::GetTimeZoneInformation() {
  const QTimeZone zone = QTimeZone::systemTimeZone();
  if (!zone.isValid()) return {};
  const QDateTime now = QDateTime::currentDateTime();
  TimeZoneInformation info;
  info.Bias = -zone.standardTimeOffset(now) / 60;
  info.StandardBias = 0;
  info.DaylightBias = -zone.daylightTimeOffset(now) / 60;
  info.result = zone.isDaylightTime(now) ? 2 : 1;
  return info;
}

IniSettings::IniSettings(std::string directory) : directory_(std::move(directory)) {
  if (directory_.empty()) {
    const QString base = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    directory_ = (base + "/Quillmere").toStdString();
  }
}

std::string IniSettings::FileName(const std::string& application) const {
  return directory_ + "/" + application + ".ini";
}

IniSettings::Key IniSettings::UnsavedKey(const std::string& application, const std::string& section,
                                         const std::string& key) {
  return {application, QString::fromStdString(section).toLower().toStdString(), key};
}

std::unique_ptr<QSettings> IniSettings::Open(const std::string& application) const {
  QDir().mkpath(QString::fromStdString(directory_));
  return std::make_unique<QSettings>(QString::fromStdString(FileName(application)),
                                     QSettings::IniFormat);
}

QString IniSettings::StoredGroup(QSettings& settings, const std::string& section) {
  const QString wanted = QString::fromStdString(section);
  for (const QString& group : settings.childGroups())
    if (group.compare(wanted, Qt::CaseInsensitive) == 0) return group;
  return wanted;
}

std::string IniSettings::GetSetting(const std::string& application, const std::string& section,
                                    const std::string& key, const std::string& fallback) const {
  if (const auto unsaved = unsaved_.find(UnsavedKey(application, section, key));
      unsaved != unsaved_.end())
    return unsaved->second.value;
  auto settings = Open(application);
  settings->beginGroup(StoredGroup(*settings, section));
  const QVariant v = settings->value(QString::fromStdString(key));
  if (!v.isValid()) return fallback;
  // A hand-written value with commas reads back as a list: keep it as the text it was.
  if (v.typeId() == QMetaType::QStringList) return v.toStringList().join(",").toStdString();
  return v.toString().toStdString();
}

void IniSettings::SaveSetting(const std::string& application, const std::string& section,
                              const std::string& key, const std::string& value) {
  auto settings = Open(application);
  unsaved_[UnsavedKey(application, section, key)] = {section, value};
  // Changes the file could not take earlier go with this one.
  for (const auto& [unsavedKey, change] : unsaved_) {
    if (std::get<0>(unsavedKey) != application) continue;
    settings->beginGroup(StoredGroup(*settings, change.section));
    settings->setValue(QString::fromStdString(std::get<2>(unsavedKey)),
                       QString::fromStdString(change.value));
    settings->endGroup();
  }
  settings->sync();  // stored at the moment of change
  if (settings->status() == QSettings::NoError) {
    std::erase_if(unsaved_,
                  [&](const auto& entry) { return std::get<0>(entry.first) == application; });
    return;
  }
  if (saveFailureTold_ || !onSaveFailure) return;
  saveFailureTold_ = true;
  onSaveFailure(
      "Settings cannot be saved, so changes last only until the program closes. "
      "The settings file is " +
      FileName(application) + ".");
}

}  // namespace quillmere
