#pragma once

class DemoReport;

/// Reads documents of older versions and shows what becomes of them.
void readOldDocuments(DemoReport& report);
/// Reads documents that are newer than the program, or damaged.
void readBadDocuments(DemoReport& report);

/// Reads a document with rotations in the forms that they had.
void readOldRotations(DemoReport& report);
