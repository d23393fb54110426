#include "window/driver/TestPrinter.h"

#include <winspool.h>

#include <string_view>

#include "window/driver/Wait.h"

namespace scrivanta {

namespace {

// Two sizes of paper on a device of 300 dots per inch that cannot print on the outer quarter of an inch.
constexpr std::string_view kDescription = R"PPD(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "TEST.PPD"
*Product: "(Test)"
*PSVersion: "(3010) 0"
*Manufacturer: "Test"
*ModelName: "Test"
*ShortNickName: "Test"
*NickName: "Test"
*LanguageLevel: "3"
*ColorDevice: True
*DefaultColorSpace: RGB
*FileSystem: False
*TTRasterizer: Type42
*DefaultResolution: 300dpi
*OpenUI *PageSize: PickOne
*DefaultPageSize: A4
*PageSize A4/A4: "<</PageSize[595 842]>>setpagedevice"
*PageSize A5/A5: "<</PageSize[421 595]>>setpagedevice"
*CloseUI: *PageSize
*OpenUI *PageRegion: PickOne
*DefaultPageRegion: A4
*PageRegion A4/A4: "<</PageSize[595 842]>>setpagedevice"
*PageRegion A5/A5: "<</PageSize[421 595]>>setpagedevice"
*CloseUI: *PageRegion
*DefaultImageableArea: A4
*ImageableArea A4/A4: "18 18 577 824"
*ImageableArea A5/A5: "18 18 403 577"
*DefaultPaperDimension: A4
*PaperDimension A4/A4: "595 842"
*PaperDimension A5/A5: "421 595"
*DefaultFont: Courier
*Font Courier: Standard "(001.0)" Standard ROM
)PPD";

constexpr wchar_t kPrinterName[] = L"Scrivanta test printer";
constexpr wchar_t kDriverName[] = L"Scrivanta test driver";

// What follows the words to the end of their line.
std::string ValueOf(std::string_view text, std::string_view words) {
  const std::size_t found = text.rfind(words);
  if (found == std::string_view::npos) {
    return {};
  }
  const std::string_view value = text.substr(found + words.size());
  return std::string(value.substr(0, value.find_first_of("\r\n")));
}

void InstallDriver(const std::filesystem::path& description) {
  std::wstring name = kDriverName;
  std::wstring environment = L"Windows x64";
  std::wstring driver = L"wineps.drv";
  std::wstring data = description.wstring();
  std::wstring type = L"RAW";
  DRIVER_INFO_3W info{};
  info.cVersion = 3;
  info.pName = name.data();
  info.pEnvironment = environment.data();
  info.pDriverPath = driver.data();
  info.pDataFile = data.data();
  info.pConfigFile = driver.data();
  info.pDefaultDataType = type.data();
  if (AddPrinterDriverExW(nullptr, 3, reinterpret_cast<BYTE*>(&info), APD_COPY_NEW_FILES | APD_COPY_FROM_DIRECTORY) ==
          FALSE &&
      GetLastError() != ERROR_PRINTER_DRIVER_ALREADY_INSTALLED) {
    FailWithPicture("the printer's driver cannot be installed: error " + std::to_string(GetLastError()));
  }
}

HANDLE InstallPrinter(const std::filesystem::path& output) {
  std::wstring name = kPrinterName;
  std::wstring port = output.wstring();
  std::wstring driver = kDriverName;
  std::wstring processor = L"winprint";
  std::wstring type = L"RAW";
  std::wstring nothing;
  PRINTER_INFO_2W info{};
  info.pPrinterName = name.data();
  info.pPortName = port.data();
  info.pDriverName = driver.data();
  info.pPrintProcessor = processor.data();
  info.pDatatype = type.data();
  info.pComment = nothing.data();
  info.pLocation = nothing.data();
  info.pShareName = nothing.data();
  info.pParameters = nothing.data();
  const HANDLE printer = AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&info));
  if (printer == nullptr || SetDefaultPrinterW(kPrinterName) == FALSE) {
    FailWithPicture("the printer cannot be installed: error " + std::to_string(GetLastError()));
  }
  return printer;
}

}  // namespace

TestPrinter::TestPrinter(const TestFolder& folder) : output_(folder / L"printed.ps") {
  InstallDriver(folder.Write(L"test.ppd", kDescription));
  printer_ = InstallPrinter(output_);
}

TestPrinter::~TestPrinter() {
  DeletePrinter(printer_);
  ClosePrinter(printer_);
  DeletePrinterDriverW(nullptr, nullptr, const_cast<wchar_t*>(kDriverName));
}

bool TestPrinter::IsAnyInstalled() {
  DWORD size = 0;
  DWORD count = 0;
  EnumPrintersW(PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS, nullptr, 4, nullptr, 0, &size, &count);
  return size > 0;
}

PrintedOutput TestPrinter::TakeOutput() const {
  std::string bytes;
  WaitUntil("the printer to put out the whole document", [&] {
    bytes = HasOutput() ? ReadBytes(output_) : std::string();
    return bytes.find("%%EOF") != std::string::npos;
  });
  std::filesystem::remove(output_);
  return {.title = ValueOf(bytes, "%%Title: "),
          .pages = std::stoul("0" + ValueOf(bytes, "%%Pages: ")),
          .landscape = ValueOf(bytes, "%%Orientation: ") == "Landscape"};
}

}  // namespace scrivanta
