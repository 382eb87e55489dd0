// The screen frame's print path: the tool bar's "출력" and "미리보기" on the screen's report.
#include "data/messages.h"
#include "grid/gridprinter.h"
#include "grid/spread.h"
#include "shell/screen.h"

#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>

using namespace Qt::StringLiterals;

void Screen::m_Print(int mode) {
    const ReportGrid report = reportGrid();
    if (!report.grid) {
        return;
    }
    if (report.grid->dataRowCnt() == 0) {
        setStatusNote(u"조회된 데이터가 없습니다."_s);
        return;
    }
    printPages(GridPrinter(report.grid, report.title, report.subTitle, report.lastCol), mode);
}

void Screen::printPages(const PrintablePages& pages, int mode) {
    QPrinter printer(QPrinter::HighResolution);
    pages.setUpPage(&printer);
    if (mode == 2) {
        QPrintPreviewDialog preview(&printer, this);
        preview.setObjectName(u"printPreview"_s);
        preview.setWindowTitle(windowTitle() + u" - 미리보기"_s);
        connect(&preview, &QPrintPreviewDialog::paintRequested, this,
                [&pages](QPrinter* target) { pages.print(target); });
        preview.resize(1000, 760);
        preview.exec();
        return;
    }
    QPrintDialog dialog(&printer, this);
    dialog.setObjectName(u"printDialog"_s);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    dialog.setMinMax(1, qMax(1, pages.pageCount(&printer)));
    if (dialog.exec() == QDialog::Accepted && !pages.print(&printer)) {
        const QString file = printer.outputFileName();
        gfsPlainBox(u"출력할 수 없습니다."_s + (file.isEmpty() ? QString() : u"\n"_s + file),
                    windowTitle());
    }
}
