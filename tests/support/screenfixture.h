#pragma once

#include "servertexts.h"
#include "testdb.h"

#include "screens/screens.h"
#include "shell/mainmdi.h"
#include "shell/screen.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>

#include <memory>

// A real main window on a fresh database, with every screen registered. Screens open by number
// as a user would: typed into txtPGID and run.
class ScreenTest : public TestDb {
protected:
    void SetUp() override {
        TestDb::SetUp();
        registerScreens();
    }
    void TearDown() override {
        if (main) {
            main->closeWithoutAsking();
            main.reset();
        }
        TestDb::TearDown();
    }
    // Builds the main window (after the test has loaded what its tree and screens read).
    MAINMDI* mainWindow() {
        if (!main) {
            main = std::make_unique<MAINMDI>();
            main->setScreenWidth(1280);
            main->show();
        }
        return main.get();
    }
    template <typename T = Screen>
    T* openByNumber(int number) {
        MAINMDI* window = mainWindow();
        window->programBox()->setText(QString::number(number));
        window->cmdRun_Click();
        QApplication::processEvents();
        return qobject_cast<T*>(window->openScreen(QStringLiteral("BAMAS%1").arg(number)));
    }
    template <typename T>
    T* child(QWidget* parent, const QString& name) {
        T* found = parent->findChild<T*>(name);
        EXPECT_NE(found, nullptr) << "no control " << name.toStdString();
        return found;
    }

    std::unique_ptr<MAINMDI> main;
};
