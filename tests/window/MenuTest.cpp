// The menu that a person sees, entry by entry.
#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "window/driver/WindowProbe.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

class MenuTest : public WindowTest {};

struct ExpectedEntry {
  std::string_view controlName;
  std::u16string_view caption;
};

constexpr auto kExpectedMenu = std::to_array<ExpectedEntry>({
    {"mnuFile", u"&F 文件"},
    {"mnuNew", u"&N 新建"},
    {"mnuSep0", u"-"},
    {"mnuOpen", u"&O 打开..."},
    {"mnuOpenEncryptedFile", u"&N 打开加密文件..."},
    {"mnuSep1", u"-"},
    {"mnuSave", u"&S 保存"},
    {"mnuSaveAs", u"&A 另存为..."},
    {"mnuSaveEncryptFile", u"&E 存为加密文件..."},
    {"mnuSep2", u"-"},
    {"mnuShowPageSetupDlg", u"&U 页面设置"},
    {"mnuPrint", u"&P 打印"},
    {"mnuSep3", u"-"},
    {"mnuExit", u"&X 退出"},
    {"mnuEdit", u"&E 编辑"},
    {"mnuUndo", u"&U 撤消"},
    {"mnuRedo", u"&R 重复"},
    {"mnuSep5", u"-"},
    {"mnuSelBegin", u"&B 设置开始标记"},
    {"mnuGotoLine", u"&G 定位到指定行"},
    {"mnuSelEnd", u"&E 设置结束标记"},
    {"mnuCut", u"&T 剪切"},
    {"mnuCopy", u"&C 拷贝"},
    {"mnuPaste", u"&P 粘贴"},
    {"mnudelete", u"&D 删除"},
    {"mnuCopyAboveChar", u"&R 拷贝上一字符"},
    {"mnuSelectAll", u"&A 全选"},
    {"mnuSep6", u"-"},
    {"mnuFind", u"&F 查找..."},
    {"mnuFindNext", u"&N 查找下一个"},
    {"mnufindall", u"&L 查找所有"},
    {"mnuSep7", u"-"},
    {"mnuGoToThis", u"&G 定位到这里"},
    {"mnuFormat", u"&O 格式"},
    {"mnuAllcaps", u"&A 大写"},
    {"mnuFont", u"&F 字体..."},
    {"mnuBold", u"&B 粗体"},
    {"mnuItalic", u"&I 斜体"},
    {"mnuUnderline", u"&U 下划线"},
    {"mnuTreat", u"&T 文件处理"},
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
    {"mnuTools", u"&L 工具"},
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
    {"mnuhelp", u"&H 帮助"},
    {"mnuHowToUse", u"How To Use"},
});

TEST_F(MenuTest, MenuStandsInItsOrder) {
  app.Start();
  const std::vector<std::u16string> shown = app.MenuCaptions();
  ASSERT_EQ(shown.size(), kExpectedMenu.size());
  for (std::size_t i = 0; i < kExpectedMenu.size(); ++i) {
    EXPECT_EQ(Shown(shown[i]), Shown(kExpectedMenu[i].caption)) << "entry " << i;
  }
}

TEST_F(MenuTest, MenuEntriesAreTheirControls) {
  app.Start();
  constexpr std::array<std::string_view, 6> kBar = {"mnuFile",  "mnuEdit",  "mnuFormat",
                                                    "mnuTreat", "mnuTools", "mnuhelp"};
  for (const ExpectedEntry& expected : kExpectedMenu) {
    if (std::ranges::find(kBar, expected.controlName) == kBar.end()) {
      EXPECT_EQ(Shown(app.MenuEntry(expected.controlName).caption), Shown(expected.caption)) << expected.controlName;
    }
  }
}

}  // namespace
}  // namespace scrivanta
