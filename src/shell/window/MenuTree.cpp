#include "shell/window/MenuTree.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace scrivanta {

namespace {

constexpr auto kMenu = std::to_array<MenuEntry>({
    {"mnuFile", u"&F 文件", MenuLevel::kBar},
    {"mnuNew", u"&N 新建", MenuLevel::kEntry, u"Ctrl+N"},
    {"mnuSep0", u"-"},
    {"mnuOpen", u"&O 打开...", MenuLevel::kEntry, u"Ctrl+O"},
    {"mnuOpenEncryptedFile", u"&N 打开加密文件..."},
    {"mnuSep1", u"-"},
    {"mnuSave", u"&S 保存", MenuLevel::kEntry, u"Ctrl+S"},
    {"mnuSaveAs", u"&A 另存为...", MenuLevel::kEntry, u"Ctrl+Shift+S"},
    {"mnuSaveEncryptFile", u"&E 存为加密文件..."},
    {"mnuSep2", u"-"},
    {"mnuShowPageSetupDlg", u"&U 页面设置"},
    {"mnuPrint", u"&P 打印", MenuLevel::kEntry, u"Ctrl+P"},
    {"mnuSep3", u"-"},
    {"mnuExit", u"&X 退出"},
    {"mnuEdit", u"&E 编辑", MenuLevel::kBar},
    {"mnuUndo", u"&U 撤消", MenuLevel::kEntry, u"Ctrl+Z"},
    {"mnuRedo", u"&R 重复", MenuLevel::kEntry, u"Ctrl+Y"},
    {"mnuSep5", u"-"},
    {"mnuSelBegin", u"&B 设置开始标记"},
    {"mnuGotoLine", u"&G 定位到指定行", MenuLevel::kEntry, u"Ctrl+G"},
    {"mnuSelEnd", u"&E 设置结束标记"},
    {"mnuCut", u"&T 剪切", MenuLevel::kEntry, u"Ctrl+X", u"Shift+Delete"},
    {"mnuCopy", u"&C 拷贝", MenuLevel::kEntry, u"Ctrl+C", u"Ctrl+Insert"},
    {"mnuPaste", u"&P 粘贴", MenuLevel::kEntry, u"Ctrl+V", u"Shift+Insert"},
    {"mnudelete", u"&D 删除"},
    {"mnuCopyAboveChar", u"&R 拷贝上一字符"},
    {"mnuSelectAll", u"&A 全选", MenuLevel::kEntry, u"Ctrl+A"},
    {"mnuSep6", u"-"},
    {"mnuFind", u"&F 查找...", MenuLevel::kEntry, u"Ctrl+F"},
    {"mnuFindNext", u"&N 查找下一个", MenuLevel::kEntry, u"F3"},
    {"mnufindall", u"&L 查找所有"},
    {"mnuSep7", u"-"},
    {"mnuGoToThis", u"&G 定位到这里"},
    {"mnuFormat", u"&O 格式", MenuLevel::kBar},
    {"mnuAllcaps", u"&A 大写"},
    {"mnuFont", u"&F 字体..."},
    {"mnuBold", u"&B 粗体", MenuLevel::kEntry, u"Ctrl+B"},
    {"mnuItalic", u"&I 斜体", MenuLevel::kEntry, u"Ctrl+I"},
    {"mnuUnderline", u"&U 下划线", MenuLevel::kEntry, u"Ctrl+U"},
    {"mnuTreat", u"&T 文件处理", MenuLevel::kBar},
    {"mnuMergeFile", u"&M 合并一个目录或指定多个文件的内容"},
    {"mnuSep20", u"-"},
    {"mnuDelEmptyLine", u"&D 删除空行"},
    {"mnuTrimLine", u"&T 删除行首尾空格"},
    {"mnuDelLineFromXtoY", u"&N 删除开始行至结束行"},
    {"mnuFilterNeedLine", u"&N 行过滤"},
    {"mnuFilterRepeatLine", u"&F 过滤重复行（全文比较方式）"},
    {"mnuFilterContinueRepeatLine", u"&C 过滤重复行（连续的重复行）"},
    {"mnuRunAllLine", u"&R 批量打开行（默认打开方式）"},
    {"mnuSep4", u"-"},
    {"mnuFindInFile", u"&F 是否能在文件、目录中找到"},
    {"mnuUndoFileReplace", u"&U 撤消文件替换..."},
    {"mnuSep00", u"-"},
    {"mnuRegTest", u"&H 正则表达式测试"},
    {"mnuRegGet", u"&I 正则表达式过滤"},
    {"mnuRegReplace", u"&J 正则表达式替换"},
    {"mnuSep10", u"-"},
    {"mnuZuoBiaoToXiangDuiZuoBiao", u"&R 绝对坐标转为相对坐标"},
    {"mnuXunLeiXiaZaiList", u"&R cfg文件生成迅雷下载列表"},
    {"mnuAndroidPhoneBookEncode", u"&R 安卓手机电话簿解码到Excel中"},
    {"mnuAndroidPhoneBookDecode", u"&R 安卓手机电话簿重编码（使手机可用）"},
    {"mnuExcelPhoneBookToAndroid", u"&R 当前Excel电话簿重编码（使手机可用）"},
    {"mnuSep11", u"-"},
    {"mnuSort", u"&S 排序"},
    {"mnuRandOrder", u"&R 行随机排序"},
    {"mnuJiaZiMu", u"&J 加字母"},
    {"mnuChangeToSDFFile", u"&D 转为SDF文件"},
    {"mnuFenLan", u"&L 硬分栏"},
    {"mnuAddTAB", u"&A 加足够TAB符"},
    {"mnuDataGuanLianHeBin", u"&G 数据关联合并"},
    {"mnuSep8", u"-"},
    {"mnuEncryptSelectedText", u"&E 加密..."},
    {"mnuDeEncryptSelectedText", u"&N 解密..."},
    {"mnuSep9", u"-"},
    {"mnuChangeDiretryFileTime", u"&C 批量改变文件日期"},
    {"mnuTools", u"&L 工具", MenuLevel::kBar},
    {"mnuVBreferences", u"&V VB工程引用"},
    {"mnuCalendar", u"&C 日历"},
    {"mnuCalculator", u"&A 计算器"},
    {"mnuStatistics", u"&S 统计"},
    {"mnuOptions", u"&O 选项..."},
    {"mnuSep12", u"-"},
    {"mnuWindows", u"&W 窗口与进程..."},
    {"mnuSendInput", u"&K 模拟键盘鼠标..."},
    {"mnuRegistry", u"&G 注册表..."},
    {"mnuTypeLibraries", u"&T 类型库..."},
    {"mnuFolders", u"&F 特殊文件夹与快捷方式..."},
    {"mnuDatabase", u"&D 数据库交换..."},
    {"mnuNote", u"&N 便笺"},
    {"mnuhelp", u"&H 帮助", MenuLevel::kBar},
    {"mnuHowToUse", u"How To Use", MenuLevel::kEntry, u"F1"},
    {"mnuZoomIn", u"放大显示", MenuLevel::kKeysOnly, u"Ctrl++", u"Ctrl+Num+"},
    {"mnuZoomOut", u"缩小显示", MenuLevel::kKeysOnly, u"Ctrl+-", u"Ctrl+Num-"},
    {"mnuZoomReset", u"恢复显示比例", MenuLevel::kKeysOnly, u"Ctrl+0", u"Ctrl+Num0"},
    {"mnuWordWrap", u"自动换行（开、关）", MenuLevel::kKeysOnly, u"Ctrl+W"},
    {"mnuLineNumbers", u"行号（开、关）", MenuLevel::kKeysOnly, u"Ctrl+Shift+L"},
    {"mnuEncoding", u"编码（状态栏的菜单）", MenuLevel::kKeysOnly},
    {"mnuLineEnds", u"换行（状态栏的菜单）", MenuLevel::kKeysOnly},
    {"mnuReplace", u"替换...", MenuLevel::kKeysOnly, u"Ctrl+H"},
    {"mnuSelectionToNote", u"选中的文字送到便笺", MenuLevel::kKeysOnly, u"Ctrl+Shift+N"},
    {"mnuFindPrevious", u"查找上一个", MenuLevel::kKeysOnly, u"Shift+F3"},
});

constexpr auto kChangesDocument = std::to_array<std::string_view>({
    "mnuCut",
    "mnuPaste",
    "mnudelete",
    "mnuCopyAboveChar",
    "mnuAllcaps",
    "mnuFont",
    "mnuBold",
    "mnuItalic",
    "mnuUnderline",
    "mnuDelEmptyLine",
    "mnuTrimLine",
    "mnuDelLineFromXtoY",
    "mnuFilterNeedLine",
    "mnuFilterRepeatLine",
    "mnuFilterContinueRepeatLine",
    "mnuRegGet",
    "mnuRegReplace",
    "mnuZuoBiaoToXiangDuiZuoBiao",
    "mnuXunLeiXiaZaiList",
    "mnuSort",
    "mnuRandOrder",
    "mnuJiaZiMu",
    "mnuChangeToSDFFile",
    "mnuFenLan",
    "mnuAddTAB",
    "mnuDataGuanLianHeBin",
    "mnuEncryptSelectedText",
    "mnuDeEncryptSelectedText",
});

}  // namespace

std::span<const MenuEntry> MenuTree() {
  return kMenu;
}

bool ChangesDocument(std::string_view controlName) {
  return std::ranges::find(kChangesDocument, controlName) != kChangesDocument.end();
}

std::optional<int> MenuCommandId(std::string_view controlName) {
  const auto* const found = std::ranges::find(kMenu, controlName, &MenuEntry::controlName);
  if (found == kMenu.end()) {
    return std::nullopt;
  }
  return kFirstMenuCommandId + static_cast<int>(std::distance(kMenu.begin(), found));
}

const MenuEntry* MenuEntryOf(int commandId) {
  const int index = commandId - kFirstMenuCommandId;
  return index >= 0 && index < static_cast<int>(kMenu.size()) ? &kMenu[static_cast<std::size_t>(index)] : nullptr;
}

}  // namespace scrivanta
