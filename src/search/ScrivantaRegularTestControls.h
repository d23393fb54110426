// Identifiers of the pattern tester, for its template and its code.
#pragma once

#define IDD_REGULAR_TEST 4200
#define Combo1 4201
#define Command1 4202
#define Command2 4203
#define Command3 4204
#define Text1 4205
#define Label1 4206
