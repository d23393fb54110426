// Identifiers of the window FrmNote.
#pragma once

#define IDD_FRM_NOTE 5250
#define IDM_FRM_NOTE 5251
#define CmbNotes 5252
#define RichNote 5253
#define TxtNoteFind 5254
#define ChkNotePattern 5255
#define LabNoteFound 5256
#define mnuNoteNew 5260
#define mnuNoteToDocument 5261
#define mnuNoteTakeSelection 5262
#define mnuNoteFind 5263
#define mnuNoteDelete 5264
#define mnuNoteClose 5265
#define mnuNoteFont 5266
#define mnuNotePaper 5267
#define mnuNoteOpacity 5268
