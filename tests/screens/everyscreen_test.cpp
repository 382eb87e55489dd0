// Every screen of the number table, and every pop-up its buttons open, as a shop sees them at
// 1280x800 on the demo chain: each grid, list and box shown has room for its first column (or
// its text) and lies inside the window. A screen or pop-up added later is covered as it stands.
#include "screenfixture.h"

#include "data/demo/demochain.h"
#include "data/session.h"
#include "grid/spread.h"
#include "shell/screenregistry.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QMdiArea>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QTabWidget>
#include <QTextEdit>
#include <QTimer>

namespace {

constexpr int kWidth = 1280;
constexpr int kHeight = 800;

bool inside(const QWidget* w, const char* type) {
    for (const QWidget* p = w->parentWidget(); p; p = p->parentWidget()) {
        if (p->inherits(type)) {
            return true;
        }
    }
    return false;
}

QString nameOf(const QWidget* w) {
    const QString name = w->objectName().isEmpty()
                             ? QString::fromLatin1(w->metaObject()->className())
                             : w->objectName();
    return name;
}

// The width a control needs to be of use: a grid its first shown column, a box its text (a
// date, a chosen code) or at least a few characters, a list a few characters.
int neededWidth(QWidget* w) {
    const QFontMetrics fm = w->fontMetrics();
    const int few = 3 * fm.horizontalAdvance(QChar(0xAC00)); // three Korean syllables
    if (auto* grid = qobject_cast<Spread*>(w)) {
        QTableView* view = grid->view();
        for (int c = 0; c <= grid->maxCols(); ++c) {
            if (!view->isColumnHidden(c)) {
                return view->columnWidth(c) + 2 * view->frameWidth();
            }
        }
        return 0;
    }
    if (auto* combo = qobject_cast<QComboBox*>(w)) {
        // The arrow and frame take what minimumSizeHint leaves for a text of a few characters.
        return qMax(few, qMin(combo->minimumSizeHint().width(), 20 * fm.averageCharWidth()));
    }
    if (auto* spin = qobject_cast<QAbstractSpinBox*>(w)) {
        return fm.horizontalAdvance(spin->text()) + 8;
    }
    if (auto* edit = qobject_cast<QLineEdit*>(w)) {
        return qMin(few,
                    qMax(fm.horizontalAdvance(edit->text()) + 8, edit->minimumSizeHint().width()));
    }
    return few;
}

bool isCheckedControl(QWidget* w) {
    if (!w->isVisible() || inside(w, "Spread")) {
        return false;
    }
    if (qobject_cast<Spread*>(w) || qobject_cast<QComboBox*>(w) ||
        qobject_cast<QAbstractSpinBox*>(w) || qobject_cast<QTextEdit*>(w) ||
        qobject_cast<QPlainTextEdit*>(w)) {
        return true;
    }
    if (qobject_cast<QLineEdit*>(w)) {
        return !inside(w, "QComboBox") && !inside(w, "QAbstractSpinBox");
    }
    // Lists and trees of their own; a combo's pop-up list is the combo's.
    return qobject_cast<QAbstractItemView*>(w) && !inside(w, "QComboBox");
}

// What is wrong with the controls of `root` shown inside `frame` (the screen's MDI area or the
// pop-up itself).
QStringList findings(QWidget* root, QWidget* frame, const QString& where) {
    QStringList found;
    const QRect room = frame->rect();
    const auto widgets = root->findChildren<QWidget*>();
    for (QWidget* w : widgets) {
        if (!isCheckedControl(w)) {
            continue;
        }
        const int need = neededWidth(w);
        if (w->width() < need || w->width() <= 0) {
            found << QStringLiteral("%1 %2: %3 px wide, needs %4")
                         .arg(where, nameOf(w))
                         .arg(w->width())
                         .arg(need);
        }
        const QRect at(w->mapTo(frame, QPoint(0, 0)), w->size());
        if (!room.contains(at)) {
            found << QStringLiteral("%1 %2: at %3,%4 %5x%6, outside %7x%8")
                         .arg(where, nameOf(w))
                         .arg(at.x())
                         .arg(at.y())
                         .arg(at.width())
                         .arg(at.height())
                         .arg(room.width())
                         .arg(room.height());
        }
    }
    return found;
}

} // namespace

class EveryScreen : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        generateDemoChain(*session().gDb, 1, 1);
        MAINMDI* window = mainWindow();
        window->setWindowState(Qt::WindowNoState);
        window->setGeometry(0, 0, kWidth, kHeight);
        QApplication::processEvents();
    }

    // Checks the pop-up in front, if one is up, and closes it.
    void checkPopup(const QString& opener) {
        QWidget* modal = QApplication::activeModalWidget();
        auto* dialog = qobject_cast<QDialog*>(modal);
        if (!dialog) {
            return;
        }
        // Qt's own dialogs (a file or print dialog) are not ours to lay out.
        if (!qobject_cast<QFileDialog*>(dialog) && !qobject_cast<QMessageBox*>(dialog) &&
            !dialog->inherits("QPrintDialog") && !dialog->inherits("QPrintPreviewDialog")) {
            ++popups;
            const QString where = opener + QStringLiteral(" > ") + nameOf(dialog);
            if (dialog->width() > kWidth || dialog->height() > kHeight) {
                problems << QStringLiteral("%1: %2x%3, larger than the screen")
                                .arg(where)
                                .arg(dialog->width())
                                .arg(dialog->height());
            }
            problems << findings(dialog, dialog, where);
        }
        dialog->reject();
    }

    // Each tab in view in turn, with the controls of the screen checked on each, and every
    // button of the screen pressed once for the pop-ups it opens.
    void checkScreen(Screen* opened, const QString& name) {
        QPointer<Screen> screen(opened);
        auto* area = main->findChild<QMdiArea*>();
        ASSERT_NE(area, nullptr);
        QWidget* frame = area->viewport();
        const auto checkTabs = [&] {
            problems << findings(screen, frame, name);
            const auto tabs = screen->findChildren<QTabWidget*>();
            for (QTabWidget* tabWidget : tabs) {
                for (int i = 0; i < tabWidget->count(); ++i) {
                    tabWidget->setCurrentIndex(i);
                    QApplication::processEvents();
                    problems << findings(tabWidget->widget(i), frame,
                                         name + QStringLiteral(" tab %1").arg(i));
                }
                tabWidget->setCurrentIndex(0);
            }
        };
        checkTabs();
        if (problems.size() > 200) {
            return;
        }
        QList<QPointer<QPushButton>> buttons;
        for (QPushButton* b : screen->findChildren<QPushButton*>()) {
            if (!inside(b, "Spread")) {
                buttons << b;
            }
        }
        for (const QPointer<QPushButton>& b : buttons) {
            if (!screen || !b || !b->isEnabled()) {
                continue;
            }
            // The tab that holds the button in view, as a user has it before pressing.
            for (QWidget* p = b->parentWidget(); p && p != screen; p = p->parentWidget()) {
                QWidget* pages = p->parentWidget();
                auto* tabs = pages ? qobject_cast<QTabWidget*>(pages->parentWidget()) : nullptr;
                if (tabs && tabs->indexOf(p) >= 0) {
                    tabs->setCurrentWidget(p);
                }
            }
            QApplication::processEvents();
            if (!b->isVisible()) {
                continue;
            }
            const QString opener = name + QStringLiteral(" ") + nameOf(b);
            QTimer::singleShot(0, main.get(), [this, opener] { checkPopup(opener); });
            QTest::mouseClick(b, Qt::LeftButton);
            QApplication::processEvents();
        }
    }

    QStringList problems;
    int popups = 0;
};

TEST_F(EveryScreen, everyGridListAndBoxOfEveryScreenAndPopUpHasRoomInside1280x800) {
    ASSERT_EQ(main->size(), QSize(kWidth, kHeight));
    int screens = 0;
    for (const ScreenInfo& info : screenTable()) {
        Screen* screen = openByNumber(info.number);
        ASSERT_NE(screen, nullptr) << info.name.toStdString();
        ++screens;
        checkScreen(screen, info.name);
        if (Screen* still = main->openScreen(info.name)) {
            still->m_Close();
        }
        QApplication::processEvents();
    }
    EXPECT_EQ(screens, int(screenTable().size()));
    EXPECT_GT(popups, 3); // the pickers and pop-ups of the built screens were reached
    EXPECT_TRUE(problems.isEmpty()) << problems.join(QLatin1Char('\n')).toStdString();
}
