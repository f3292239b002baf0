#pragma once
// Printing a document: its pages (editor/Paginas) drawn with margins of
// about two centimetres, the file's name at the head of each page and
// "Página N de M" at its foot; and the preview of the same pages.

#include <QString>

class Documento;
class QPrinter;
class QWidget;

// False when the printer cannot be opened.
bool ImprimeDocumento(QPrinter& impresora, const Documento& doc, const QString& titulo);

// The print preview, in its own modal window; its print button prints.
void VistaPrevia(QWidget* padre, const Documento& doc, const QString& titulo);
