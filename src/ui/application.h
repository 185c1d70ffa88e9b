// The process: its globals, the start-up sequence behind main, and diagnostics.
#pragma once

#include <QByteArray>
#include <QString>

class QApplication;
class QTMainFrm;

extern QApplication* theApp; ///< on the stack of main
extern QTMainFrm* mainWnd;   ///< on the stack of run; null while it is built and torn down
extern QString appHomeDir;   ///< where the program lies; set by main

/// Sets up the tables, shows the main window with the documents and runs the event loop.
/// Only argv[1] is looked at: a figure to open. The result is that of the event loop.
int run(int argc, char** argv);
/// A file name from the command line, made independent of the working directory.
QByteArray absoluteFileName(const char* name);
/// Replaces the TeX commands that a settings store of an early version holds. Tells the user
/// first if they were changed by hand.
void renewTexCommands();

/// Frees what gestures leave behind for the next one. At the end of the process.
void cleanupTempObjects();

/// Print to the debug stream: "family | style" of each font, and the keys of the widget styles.
void listFonts();
void listStyles();
