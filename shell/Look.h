#pragma once
// Fonts, style and design lengths of the window and its dialogs.

#include <QFont>
#include <QHash>
#include <QIcon>
#include <QString>

struct BrandRow;
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

// The program's style sheet (from the resources), in the brand's colours.
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

// The image folder of a scale: "96-DPI" at 1.0, "125-DPI" at 1.25, "144-DPI"
// at 1.5 and above. Empty strictly between: such a scale takes no image and
// the widgets keep what the form gave them.
QString ImageFolder(float scale);
// Where the brand keeps an image of a folder: ":/images/<root><folder>/<file>".
QString ImagePath(const BrandRow &brand, const QString &folder, const QString &file);
// The code in the names of the large add button's images ("Add fileEN.png").
QString AddImageCode(int language, bool pressed);
// Style sheets with images of the window's widgets, by object name, for an
// image folder and a language; none for an empty folder.
QHash<QString, QString> ImageSheets(const BrandRow &brand, const QString &folder, int language);
// The sheet of the two lists: at 1.0, at 1.25, and one for 1.5, 2.0 and 2.5
// and more (the third brand: one for each); empty at any other scale.
QString ListSheet(const BrandRow &brand, float scale);
// The dialogs' info icon; empty where the scale takes no image.
QString DialogIconSheet(const BrandRow &brand, float scale);
// Every url(...) in a style sheet.
QStringList SheetUrls(const QString &sheet);

// Lets a frameless window be dragged by a left press anywhere on it.
void DragByAnyPress(QWidget *window);

} // namespace look
