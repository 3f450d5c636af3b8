#pragma once
// What the program knows of the system it runs on: the user's locale as the framework's
// language ids, and the system's version. Both are read once at start; SysLocale is a
// variable, so that a program (or a test) may set it to another system's.

#include <cstdint>

namespace quil {

// Primary language ids of the framework's locales.
constexpr int LANG_NEUTRAL = 0x00;
constexpr int LANG_ARABIC = 0x01;
constexpr int LANG_CHINESE = 0x04;
constexpr int LANG_GERMAN = 0x07;
constexpr int LANG_ENGLISH = 0x09;
constexpr int LANG_SPANISH = 0x0A;
constexpr int LANG_FRENCH = 0x0C;
constexpr int LANG_HEBREW = 0x0D;
constexpr int LANG_ITALIAN = 0x10;
constexpr int LANG_JAPANESE = 0x11;
constexpr int LANG_KOREAN = 0x12;
constexpr int LANG_DUTCH = 0x13;
constexpr int LANG_POLISH = 0x15;
constexpr int LANG_PORTUGUESE = 0x16;
constexpr int LANG_RUSSIAN = 0x19;
constexpr int LANG_URDU = 0x20;
constexpr int LANG_FARSI = 0x29;

struct TSysLocale {
  int DefaultLCID = 0;  // PriLangID | SubLangID << 10
  int PriLangID = LANG_NEUTRAL;
  int SubLangID = 0;
  bool FarEast = false;     // Chinese, Japanese or Korean: input by composition
  bool MiddleEast = false;  // a right-to-left language
};

// The user's locale, as Qt reports it at start.
extern TSysLocale SysLocale;
// The locale of a Qt language, for a program that sets SysLocale itself.
TSysLocale SysLocaleOf(int qtLanguage);

constexpr uint32_t VER_PLATFORM_WIN32_NT = 2;

// The 284-byte version record of the framework's version call.
struct TOSVersionInfoEx {
  uint32_t dwOSVersionInfoSize = 284;
  uint32_t dwMajorVersion = 0;
  uint32_t dwMinorVersion = 0;
  uint32_t dwBuildNumber = 0;
  uint32_t dwPlatformId = 0;
  char16_t szCSDVersion[128] = {};
  uint16_t wServicePackMajor = 0;
  uint16_t wServicePackMinor = 0;
  uint16_t wSuiteMask = 0;
  uint8_t wProductType = 0;
  uint8_t wReserved = 0;
};
static_assert(sizeof(TOSVersionInfoEx) == 284, "the record has the framework's size");

// Fills the version of the system; false when dwOSVersionInfoSize is not the record's.
// On a Windows system these are its numbers; any other system reports version 0.0, build
// 0, so that version checks take it for none of Windows' versions.
bool GetVersionEx(TOSVersionInfoEx& info);
// The system is at least major.minor.
bool CheckWin32Version(int major, int minor = 0);

}  // namespace quil
