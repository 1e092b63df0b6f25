// The words of a window, in both languages, and the room for them.
#pragma once

#include "core/Language.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QTabWidget>
#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <vector>

namespace ecg {

using Words = std::set<QString>;

// Every word that a window shows on any of its tabs or menus.
inline Words WordsOf(QWidget& window)
{
    Words words{window.windowTitle()};
    for (const auto* label : window.findChildren<QLabel*>())
        words.insert(label->text());
    for (const auto* button : window.findChildren<QAbstractButton*>())
        words.insert(button->text());
    for (const auto* group : window.findChildren<QGroupBox*>())
        words.insert(group->title());
    for (const auto* action : window.findChildren<QAction*>())
        words.insert(action->text());
    for (const auto* tabs : window.findChildren<QTabWidget*>())
        for (int i = 0; i < tabs->count(); ++i)
            words.insert(tabs->tabText(i));
    return words;
}

// What shows of the window is as wide as its words, and the window fits the smallest screen.
inline void ExpectRoomForAllWords(QWidget& window)
{
    EXPECT_LE(window.width(), 1024);
    EXPECT_LE(window.height(), 720);  // the frame of the window and a task bar take the rest of 768
    for (const auto* label : window.findChildren<QLabel*>()) {
        const bool isLine = label->isVisible() && !label->wordWrap();
        EXPECT_TRUE(!isLine || label->width() >= label->sizeHint().width()) << label->text().toStdString();
    }
    for (const auto* button : window.findChildren<QAbstractButton*>()) {
        const bool hasWords = button->isVisible() && !button->text().isEmpty();
        EXPECT_TRUE(!hasWords || button->width() >= button->sizeHint().width()) << button->text().toStdString();
    }
}

// A shown window has all `captions`, no Chinese in its English form, and room on each of its tabs.
inline void ExpectCaptions(QWidget& window, bool chinese, const std::vector<Twin>& captions)
{
    const Words words = WordsOf(window);
    for (const Twin& caption : captions)
        EXPECT_EQ(words.count(caption.In(chinese)), 1U) << caption.In(chinese);
    for (const QString& word : words)
        for (const QChar character : word)
            EXPECT_TRUE(chinese || character.script() != QChar::Script_Han) << word.toStdString();
    auto* tabs = window.findChild<QTabWidget*>();
    for (int i = 0; i < (tabs == nullptr ? 1 : tabs->count()); ++i) {
        if (tabs != nullptr)
            tabs->setCurrentIndex(i);
        QApplication::processEvents();
        ExpectRoomForAllWords(window);
    }
}

}  // namespace ecg
