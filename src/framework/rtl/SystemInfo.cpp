#include "framework/rtl/SystemInfo.h"

#include <QLocale>
#include <QOperatingSystemVersion>
#include <algorithm>

namespace quil {

TSysLocale SysLocaleOf(int qtLanguage) {
  TSysLocale locale;
  switch (QLocale::Language(qtLanguage)) {
    case QLocale::Arabic: locale.PriLangID = LANG_ARABIC; break;
    case QLocale::Chinese: locale.PriLangID = LANG_CHINESE; break;
    case QLocale::German: locale.PriLangID = LANG_GERMAN; break;
    case QLocale::English: locale.PriLangID = LANG_ENGLISH; locale.SubLangID = 1; break;
    case QLocale::Spanish: locale.PriLangID = LANG_SPANISH; break;
    case QLocale::French: locale.PriLangID = LANG_FRENCH; break;
    case QLocale::Hebrew: locale.PriLangID = LANG_HEBREW; break;
    case QLocale::Italian: locale.PriLangID = LANG_ITALIAN; break;
    case QLocale::Japanese: locale.PriLangID = LANG_JAPANESE; break;
    case QLocale::Korean: locale.PriLangID = LANG_KOREAN; break;
    case QLocale::Dutch: locale.PriLangID = LANG_DUTCH; break;
    case QLocale::Polish: locale.PriLangID = LANG_POLISH; break;
    case QLocale::Portuguese: locale.PriLangID = LANG_PORTUGUESE; break;
    case QLocale::Russian: locale.PriLangID = LANG_RUSSIAN; break;
    case QLocale::Urdu: locale.PriLangID = LANG_URDU; break;
    case QLocale::Persian: locale.PriLangID = LANG_FARSI; break;
    default: break;
  }
  if (locale.PriLangID != LANG_NEUTRAL && locale.SubLangID == 0) locale.SubLangID = 1;
  locale.DefaultLCID = locale.PriLangID | (locale.SubLangID << 10);
  locale.FarEast = locale.PriLangID == LANG_CHINESE || locale.PriLangID == LANG_JAPANESE ||
                   locale.PriLangID == LANG_KOREAN;
  locale.MiddleEast = locale.PriLangID == LANG_ARABIC || locale.PriLangID == LANG_HEBREW ||
                      locale.PriLangID == LANG_URDU || locale.PriLangID == LANG_FARSI;
  return locale;
}

TSysLocale SysLocale = SysLocaleOf(QLocale::system().language());

bool GetVersionEx(TOSVersionInfoEx& info) {
  if (info.dwOSVersionInfoSize != sizeof(TOSVersionInfoEx)) return false;
  info = TOSVersionInfoEx();
  const QOperatingSystemVersion current = QOperatingSystemVersion::current();
  if (current.type() != QOperatingSystemVersion::Windows) return true;
  info.dwMajorVersion = uint32_t(std::max(current.majorVersion(), 0));
  info.dwMinorVersion = uint32_t(std::max(current.minorVersion(), 0));
  info.dwBuildNumber = uint32_t(std::max(current.microVersion(), 0));
  info.dwPlatformId = VER_PLATFORM_WIN32_NT;
  return true;
}

bool CheckWin32Version(int major, int minor) {
  TOSVersionInfoEx info;
  GetVersionEx(info);
  return int(info.dwMajorVersion) > major || (int(info.dwMajorVersion) == major && int(info.dwMinorVersion) >= minor);
}

}  // namespace quil
