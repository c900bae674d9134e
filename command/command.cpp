#include "command/command.h"

#include <cstdio>

void reject(const char* line) { std::printf("Command FAILED: (%s)\r\n", line); }

void printSetting(const char* rowName, const char* value) { std::printf("%s %s\r\n", rowName, value); }

void printSetting(const char* rowName, int value) { std::printf("%s %d\r\n", rowName, value); }

void printText(const Change& change) { printSetting(change.rowName, change.value.text); }

void printInteger(const Change& change) { printSetting(change.rowName, change.value.number); }

void printBracketed(const char* rowName, const char* value) { std::printf("%s[%s]\r\n", rowName, value); }

void printLine(const char* text) { std::printf("%s\r\n", text); }
