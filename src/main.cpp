#include <windows.h>

#include "ScrivantaApp.h"
#include "win/WideText.h"

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR commandLine, int) {
  return scrivanta::RunApp(instance, scrivanta::FromWide(commandLine));
}
