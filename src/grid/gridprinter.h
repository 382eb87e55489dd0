#pragma once

#include <QString>

#include <vector>

class QFontMetricsF;
class QPainter;
class QPrinter;
class Spread;

// Something that puts pages on a printer: the screen frame's one print path (preview, printer
// dialog, PDF) takes any of them. A grid report is one; a statement laid out in code is another.
class PrintablePages {
public:
    virtual ~PrintablePages() = default;
    // Paper, orientation and margins before a dialog shows them; the user may change them.
    virtual void setUpPage(QPrinter* printer) const = 0;
    // Paints every page for the printer's layout as it stands now. False when painting could not
    // start (no device, file not writable).
    virtual bool print(QPrinter* printer) const = 0;
    // The pages print() makes for the printer's layout.
    virtual int pageCount(const QPrinter* printer) const = 0;
};

// A report grid on paper, as the screen shows it: the title line, the date and the sub-title,
// the heading rows merged as on screen and repeated on every page, the data rows with their merges,
// alignments and colours (negative amounts red), page numbers at the foot. Columns 1 to lastCol
// (0: all) that are not hidden, and the row numbers when the grid shows them. A column is as wide
// as on screen or as its widest printed text, within the page width as far as the screen's widths
// allow. The whole width is scaled down to the page width; a report wider than a portrait page is
// printed landscape.
class GridPrinter : public PrintablePages {
public:
    GridPrinter(const Spread* grid, const QString& title, const QString& subTitle = QString(),
                int lastCol = 0);

    // A4, 10 mm margins, landscape when the report is wider than a portrait page.
    void setUpPage(QPrinter* printer) const override;
    bool print(QPrinter* printer) const override;
    int pageCount(const QPrinter* printer) const override;
    // True when the grid at its natural size is wider than a portrait page of the printer's
    // paper inside its margins.
    bool wide(const QPrinter* printer) const;

private:
    struct Layout;
    Layout layout(const QPrinter* printer) const;
    // The widest text of each printed column in the print font (merged texts left out).
    std::vector<double> textWidths(const QFontMetricsF& metrics) const;
    void paintPage(QPainter& painter, const Layout& l, int page) const;

    const Spread* m_grid;
    QString m_title;
    QString m_subTitle;
    std::vector<int> m_columns; // model columns printed, left to right
};

// The report written as a PDF file with the set-up above, without a dialog. False when the file
// cannot be written.
bool printToPdf(const PrintablePages& pages, const QString& path);
