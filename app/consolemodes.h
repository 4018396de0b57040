#pragma once

#include "commandlineoptions.h"

namespace tavrix {

// The modes of orvanehub that need no window. None of them makes a QApplication or a widget,
// so they run on a machine without a display.

// `--help`, `--version`, `--list-devices` and a bad command line: prints and returns the exit status.
int runInformationMode(int &argc, char **argv, const CommandLineParse &parsed);

// `--headless` (with or without `--demo`): runs until SIGINT/SIGTERM, then stops transmission
// and returns 0; returns 1 when the run cannot start.
int runHeadless(int &argc, char **argv, const CommandLineOptions &options);

// `--elrs-list` / `--elrs-set`: the transmitter module's ELRS parameters, printed; the exit status.
int runElrsList(int &argc, char **argv, const CommandLineOptions &options);

// `--flash-v4`, `--read-board`, `--check-image`: the receiver V4 over its USB-UART cable
// (receiverv4consolemodes.cpp); 0 when done, 1 when refused, failed or cancelled.
int runFlashV4(int &argc, char **argv, const CommandLineOptions &options);
int runReadBoard(int &argc, char **argv, const CommandLineOptions &options);
int runCheckImage(const CommandLineOptions &options);

// The program's arguments as the command-line parser takes them, before any application exists.
[[nodiscard]] QStringList argumentsOf(int argc, char **argv);

} // namespace tavrix
