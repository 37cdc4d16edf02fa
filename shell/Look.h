#pragma once
// Fonts, style and design lengths of the window and its dialogs.

#include <QFont>
#include <QIcon>
#include <QString>

class QWidget;

namespace look {

// "Segoe UI" and its weights are not on Linux: map them to the sans that the
// set-up installs, the condensed cut first, as its widths come closest to the
// design's. Safe to call more than once.
void InstallFontSubstitutes();

QFont Font(const char *family, int points, bool bold = false, bool underline = false);
QFont ListFont();   // "Segoe UI" 10
QFont TitleFont();  // "Segoe UI semibold" 10 bold
QFont ButtonFont(); // "Segoe UI Semibold" 10 bold

// The program's style sheet (from the resources).
QString StyleSheet();
// The round badge of a dialog's icon, sized for the scale.
QString BadgeStyle(float scale);
// Drawn rather than shipped, so it is sharp at every scale.
QIcon ProductIcon();

// A design length times the scale, truncated.
inline int Scaled(int designLength, float scale) { return int(float(designLength) * scale); }
void Place(QWidget *widget, float scale, int x, int y, int w, int h);
// Multiplies the geometry that the form gave every named widget under root.
void ScaleForm(QWidget *root, float scale);

} // namespace look
