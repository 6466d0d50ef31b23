#pragma once

#include <QString>
#include <QStringList>
#include <memory>
#include <utility>

#include "desktop/Child.h"
#include "desktop/Desktop.h"
#include "desktop/ScreenReader.h"

namespace brindlet::desktop {

/// A screen reader's visit to the demo, on a desktop of its own. What the program has said is
/// printed when the test fails.
class Visit {
  public:
    explicit Visit(int messages = 400, const QStringList& options = {});
    ~Visit();

    const Desktop& desktop() const { return desktop_; }
    Child& program() { return program_; }
    const ScreenReader& reader() const { return reader_; }

    /// Starts the program once more, over the same mail and store.
    std::unique_ptr<Child> startAgain() const;

    /// From the welcome to the mailboxes.
    void start() const;
    /// On the screen of the mailboxes.
    void chooseTheWholeInbox() const;
    /// From the mailboxes to the results of the whole inbox with the first category open; gives
    /// the button that opened it.
    Thing openAds() const;
    /// A message's row tells its sender with the address.
    static bool isMessage(const Thing& thing);
    /// Two different ticked messages of one sender, of those on show.
    std::pair<Thing, Thing> twoOfOneSender() const;
    /// Everything that can be worked on this screen has a name and can be pressed.
    void expectAllCanBePressed() const;

  private:
    QStringList arguments() const;

    int messages_;
    Desktop desktop_;
    Child program_;
    ScreenReader reader_;
};

}  // namespace brindlet::desktop
