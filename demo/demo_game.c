/* Stands in for a game: says that it was started, with what and where, waits a little, and ends. */
#include <windows.h>

#include <stdio.h>

enum { shown_for_milliseconds = 4000 };

static char message[2048];

static LRESULT CALLBACK On_message(HWND window, UINT kind, WPARAM word, LPARAM details) {
    if (kind == WM_TIMER || kind == WM_CLOSE || kind == WM_KEYDOWN || kind == WM_LBUTTONDOWN) {
        PostQuitMessage(0);
        return 0;
    }
    if (kind == WM_PAINT) {
        PAINTSTRUCT paint;
        RECT area;
        HDC canvas = BeginPaint(window, &paint);
        GetClientRect(window, &area);
        FillRect(canvas, &area, (HBRUSH)GetStockObject(BLACK_BRUSH));
        SetBkMode(canvas, TRANSPARENT);
        SetTextColor(canvas, RGB(230, 200, 120));
        InflateRect(&area, -24, -24);
        DrawTextA(canvas, message, -1, &area, DT_WORDBREAK | DT_NOPREFIX);
        EndPaint(window, &paint);
        return 0;
    }
    return DefWindowProcA(window, kind, word, details);
}

static void Write_log(const char *text) {
    FILE *log = fopen("demo_game.log", "a");
    if (!log)
        return;
    fprintf(log, "%s\n", text);
    fclose(log);
}

static int Show_window(HINSTANCE instance) {
    WNDCLASSA kind = {0};
    kind.lpfnWndProc = On_message;
    kind.hInstance = instance;
    kind.hCursor = LoadCursor(NULL, IDC_ARROW);
    kind.lpszClassName = "demo_game";
    if (!RegisterClassA(&kind))
        return 0;
    HWND window = CreateWindowExA(0, "demo_game", "Demo game", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CW_USEDEFAULT,
                                  CW_USEDEFAULT, 640, 320, NULL, NULL, instance, NULL);
    if (!window)
        return 0;
    SetTimer(window, 1, shown_for_milliseconds, NULL);
    MSG next;
    while (GetMessageA(&next, NULL, 0, 0) > 0) {
        TranslateMessage(&next);
        DispatchMessageA(&next);
    }
    return 1;
}

int WINAPI WinMain(HINSTANCE instance, HINSTANCE before, LPSTR arguments, int show) {
    char program[MAX_PATH] = "", folder[MAX_PATH] = "";
    (void)before;
    (void)show;
    GetModuleFileNameA(NULL, program, sizeof program);
    GetCurrentDirectoryA(sizeof folder, folder);
    snprintf(message, sizeof message,
             "This stands in for the game.\n\nStarted: %s\nArguments: %s\nIn the folder: %s\n\n"
             "It ends by itself in a few seconds, or at a key.",
             program, *arguments ? arguments : "(none)", folder);
    Write_log("started");
    if (!Show_window(instance))
        Sleep(1000);
    Write_log("ended");
    return 0;
}
