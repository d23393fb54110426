#include <windows.h>

#include "ScrivantaApp.h"
#include "text/win/WideText.h"

int WINAPI wWinMain(HINSTANCE hInstance, HINSTANCE, PWSTR lpCmdLine, int) {
  return scrivanta::RunApp(hInstance, scrivanta::FromWide(lpCmdLine));
}
