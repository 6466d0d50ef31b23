#pragma once

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>
#include <string>

#include "screens/Stage.h"

namespace brindlet::testing {

/// A stage on the picker of a Gmail account, whose server says what the test lets it.
class GmailStage : public Stage {
  public:
    static constexpr const char* service = "app.brindlet.Brindlet.gmail";
    static constexpr const char* address = "ada@example.org";
    static constexpr const char* password = "abcd efgh ijkl mnop";

    explicit GmailStage(const std::function<void(AppState&)>& prepare = scenes::gmail)
        : Stage(prepare) {}
    ~GmailStage() {
        const auto& task = model().gmailAsk()->checkTask();
        if (!task || task->finished()) return;
        world.tls.cancelLast();
        finishTask();
    }

    /// The server knows that one password and no other.
    void accept(const std::string& known = "abcdefghijklmnop") {
        world.tls.add(greeting(known)
                          .says("a001 OK in\r\n")
                          .hears("a002 SELECT \"INBOX\"")
                          .says("* 1 EXISTS\r\na002 OK\r\n"));
    }
    void refuse(const std::string& wrong) {
        world.tls.add(greeting(wrong).says("a001 NO [AUTHENTICATIONFAILED]\r\n"));
    }
    /// It never answers the sign-in, until the connection is cut.
    void hang() { world.tls.add(greeting("abcdefghijklmnop").blocks()); }

    void openSheet() const {
        ASSERT_TRUE(click(QStringLiteral("gmailControl")));
        ASSERT_NE(await(QStringLiteral("gmailAsk")), nullptr);
    }
    void openPanel() const {
        openSheet();
        ASSERT_TRUE(click(QStringLiteral("allowGmail")));
        ASSERT_NE(await(QStringLiteral("appPassword")), nullptr);
    }
    void paste(const QString& text) const {
        QGuiApplication::clipboard()->setText(text);
        press(Qt::Key_A, Qt::ControlModifier);
        if (text.isEmpty())
            press(Qt::Key_Delete);
        else
            press(Qt::Key_V, Qt::ControlModifier);
    }
    bool asked() const { return state->askingGmail->has_value(); }
    bool stands(const char* name) const { return find(QString::fromUtf8(name)) != nullptr; }
    bool canPress() const { return find(QStringLiteral("allowGmail"))->isEnabled(); }
    std::string text(const char* name) const {
        const auto* item = find(QString::fromUtf8(name));
        return item ? item->property("text").toString().toStdString() : std::string();
    }
    std::optional<std::string> kept() const { return world.keys.kept(service, address); }

    /// Until the test is over and what came of it is on show.
    void finishTest(const char* status) {
        ASSERT_TRUE(world.mainQueue.pumpUntil([&] {
            return model().gmailAsk()->status().toStdString() == status;
        })) << model().gmailAsk()->status().toStdString();
        settle();
    }
    void finishTask() {
        const auto task = *model().gmailAsk()->checkTask();
        // A sleep may begin after the clock was moved on.
        ASSERT_TRUE(world.mainQueue.pumpUntil([&] {
            world.clock.advance(0.7);
            return task.finished();
        }));
        settle();
    }

  private:
    static doubles::Transcript greeting(const std::string& sent) {
        doubles::Transcript talk;
        talk.accepts().says("* OK Gimap ready\r\n");
        talk.hears("a001 LOGIN \"ada@example.org\" \"" + sent + "\"");
        return talk;
    }
};

}  // namespace brindlet::testing
