// Identifiers of the input box, for its template and its code.
#pragma once

#define IDD_INPUT_BOX 3000
#define IDC_INPUT_PROMPT 3001
#define IDC_INPUT_VALUE 3002
#define IDC_INPUT_ASSISTANT 3003
