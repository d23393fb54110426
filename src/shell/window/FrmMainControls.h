// Identifiers of the main window's controls and resources. Its menu entries have theirs from shell/MenuTree.h.
#pragma once

#define IDI_SCRIVANTA 1

#define RichTextBox1 1001
#define RichTextBox0 1002
#define StatusBar1 1003
#define ProgressBar1 1004
#define cmdDummy 1005
#define LineNumbers1 1006
