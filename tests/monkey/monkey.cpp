// A player inside the window program. It starts with QApplication, before the first window, and
// does something random every few milliseconds, also while a box is open. The environment says how:
//   KALVEX_MONKEY_SEED     the seed; without it nothing happens
//   KALVEX_MONKEY_SECONDS  after that time the program is asked to end (SIGTERM)
//   KALVEX_MONKEY_STAY     nothing that ends the program is done, and `Exit` is switched off
// Each action is a line on standard error before it is done. A program that does not come back to
// its event loop for 30 seconds is ended by SIGALRM.
#include <unistd.h>

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QShortcut>
#include <QTimer>
#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "monkey/actions.h"
#include "monkey/input.h"
#include "monkey/memory.h"

namespace kalvex::monkey {
namespace {

constexpr unsigned kLongestWait = 30;  // seconds
constexpr qint64 kWarm = 60'000;       // milliseconds until windows and caches exist
constexpr qint64 kMemoryPause = 10'000;

struct Action {
    std::string (*act)(Random& random);
    int weight;
    bool ends = false;  ///< it ends the program, or may
};

constexpr Action kActions[] = {{PressKey, 300},
                               {TypeText, 60},
                               {PressButton, 250},
                               {Drag, 80},
                               {TurnWheel, 60},
                               {Touch, 60},
                               {Resize, 20},
                               {ChangeClipboard, 20},
                               {PressThroughAccessibility, 100},
                               {ReplaceFile, 20},
                               {CloseWindow, 4, true},
                               {StartAgain, 1},
                               {EndSession, 1, true},
                               {Terminate, 1, true}};

struct Player {
    Random random;
    bool stays = false;
    qint64 end = 0;
    qint64 nextMemory = kWarm;
    QElapsedTimer clock;
};

long SettingOf(const char* name, long missing) {
    const char* const text = std::getenv(name);
    return text == nullptr ? missing : std::atol(text);
}

const Action& SomeAction(Player& player) {
    int sum = 0;
    for (const Action& action : kActions)
        sum += action.weight;
    int left = Below(player.random, sum);
    for (const Action& action : kActions) {
        left -= action.weight;
        if (left < 0) return player.stays && action.ends ? kActions[0] : action;
    }
    return kActions[0];
}

/// Makes the command that ends the program impossible, in menus and as a short cut.
void KeepRunning() {
    for (QWidget* const widget : QApplication::allWidgets()) {
        for (QAction* const action : widget->actions())
            if (action->text().remove('&').startsWith("Exit")) action->setEnabled(false);
        for (QShortcut* const key : widget->findChildren<QShortcut*>())
            if (key->key() == QKeySequence("Ctrl+Q")) key->setEnabled(false);
    }
}

void TellMemory(Player& player) {
    if (player.clock.elapsed() < player.nextMemory) return;
    player.nextMemory += kMemoryPause;
    std::fprintf(stderr, "memory %lld %zu\n", static_cast<long long>(player.clock.elapsed() / 1000),
                 AllocatedBytes());
}

void Play(Player& player) {
    alarm(kLongestWait);
    TellMemory(player);
    if (player.clock.elapsed() > player.end) {
        std::raise(SIGTERM);
        return QTimer::singleShot(1000, qApp, [&player] { Play(player); });
    }
    if (player.stays) KeepRunning();
    // The next action comes also when this one opens a box and waits in it.
    QTimer::singleShot(Below(player.random, 20), qApp, [&player] { Play(player); });
    const std::string done = SomeAction(player).act(player.random);
    std::fprintf(stderr, "%s\n", done.c_str());
}

void Begin() {
    const long seed = SettingOf("KALVEX_MONKEY_SEED", -1);
    if (seed < 0) return;
    static Player player;
    player.random.seed(static_cast<unsigned>(seed));
    player.stays = SettingOf("KALVEX_MONKEY_STAY", 0) != 0;
    player.end = 1000 * SettingOf("KALVEX_MONKEY_SECONDS", 10);
    player.clock.start();
    QTimer::singleShot(0, qApp, [] { Play(player); });
}

}  // namespace
}  // namespace kalvex::monkey

static void BeginMonkey() {
    kalvex::monkey::Begin();
}
Q_COREAPP_STARTUP_FUNCTION(BeginMonkey)
