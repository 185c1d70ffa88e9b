// Writes a document as FIG 3.2 text, with the private METADATA comments for ids and links.
// Only the public form leaves this unit; the resolution is always 1200.
#pragma once

#include "model/ObjectFunctions.h"

#include <QTextStream>

class CFigContext;

/// Set by nothing: colour definitions in a form of their own that the reader does not know.
extern bool write_v40;

/// Writes the whole drawing, also with a compound open. The new text takes the file's place only
/// when it is complete. False after a message; the old file then stands as it was, and the text is
/// kept as a rescue copy that the log names.
bool write_file(CFigContext* ctx, const QString& fileName);

/// Header and objects; num_object counts those that are not compounds. Returns 0.
int writeObjects(CFigContext* ctx, QTextStream& stream);
/// Everything up to the first object, user colours included.
void writeFigHeader(CFigContext* ctx, QTextStream& stream);
void writeColordefs(CFigContext* ctx, QTextStream& stream);
/// Id line, link lines, comments, record. Nothing at all for an object that has no record.
void writeObject(QTextStream& stream, FigObjectList* rootList, FigObject* object);
void writeLine(QTextStream& stream, FigLine* line);
void writeSpline(QTextStream& stream, FigSpline* spline);
void writeText(QTextStream& stream, FigText* text);
void writeArc(QTextStream& stream, FigArc* arc);
void writeEllipse(QTextStream& stream, FigEllipse* ellipse);
void writeCompound(QTextStream& stream, FigObjectList* rootList, FigCompound* compound);
/// Only links whose target is found in the list, at any level, and has a record.
void writeLinks(QTextStream& stream, FigObjectList* rootList, FigObject* object);
void writeComments(QTextStream& stream, const QString& text);
void writeArrows(QTextStream& stream, FigObject* object);
