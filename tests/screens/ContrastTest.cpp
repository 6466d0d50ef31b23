#include <gtest/gtest.h>

#include <QColor>
#include <QQmlComponent>
#include <QQmlEngine>
#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "screens/Stage.h"

namespace brindlet::testing {
namespace {

/// What a translucent colour makes of the opaque one below it.
QColor over(const QColor& top, const QColor& below) {
    const auto mix = [share = top.alphaF()](float a, float b) {
        return a * share + b * (1 - share);
    };
    return QColor::fromRgbF(mix(top.redF(), below.redF()), mix(top.greenF(), below.greenF()),
                            mix(top.blueF(), below.blueF()));
}

QColor wash(QColor tint, double strength) {
    tint.setAlphaF(static_cast<float>(strength));
    return tint;
}

double luminance(const QColor& colour) {
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(static_cast<double>(colour.redF())) +
           0.7152 * linear(static_cast<double>(colour.greenF())) +
           0.0722 * linear(static_cast<double>(colour.blueF()));
}

double contrast(const QColor& a, const QColor& b) {
    const double one = luminance(a) + 0.05;
    const double other = luminance(b) + 0.05;
    return std::max(one, other) / std::min(one, other);
}

using Grounds = std::map<std::string, QColor>;
const std::vector<std::string> tints{"lavender", "blue", "orange", "green"};
const std::vector<std::string> pages{"ground", "groundHigh"};
const std::vector<std::string> surfaces{"ground", "groundHigh", "card", "raised"};

/// The tokens of one look, and the grounds that are made of them.
class Look {
  public:
    Look(const Stage& stage, bool dark) {
        stage.model().setDark(dark);
        stage.settle();
        QQmlComponent asking(qmlEngine(stage.window()));
        asking.setData(
            "import QtQml\nimport Brindlet.Screens\n"
            "QtObject { property QtObject theme: Theme }",
            {});
        const std::unique_ptr<QObject> asker(asking.create());
        if (!asker) qFatal("%s", qPrintable(asking.errorString()));
        theme_ = asker->property("theme").value<QObject*>();
    }

    QColor colour(const std::string& token) const {
        const auto value = theme_->property(token.c_str());
        EXPECT_TRUE(value.isValid()) << token;
        return value.value<QColor>();
    }
    double strength(const char* token) const {
        const auto value = theme_->property(token);
        EXPECT_TRUE(value.isValid()) << token;
        return value.toDouble();
    }

    Grounds plain(const std::vector<std::string>& names) const {
        Grounds made;
        for (const auto& name : names) made[name] = colour(name);
        return made;
    }
    /// Each of those under a translucent token.
    Grounds under(const char* token, const Grounds& grounds) const {
        Grounds made;
        for (const auto& [name, below] : grounds)
            made[std::string(token) + " on " + name] = over(colour(token), below);
        return made;
    }
    Grounds washed(const std::string& tint, double strength, const Grounds& grounds) const {
        Grounds made;
        for (const auto& [name, below] : grounds)
            made[tint + " at " + std::to_string(strength) + " on " + name] =
                over(wash(colour(tint), strength), below);
        return made;
    }

  private:
    QObject* theme_ = nullptr;
};

class Contrast : public ::testing::TestWithParam<bool> {
  protected:
    void expectLegible(const std::string& ink, const Grounds& grounds, double opacity = 1) {
        for (const auto& [name, ground] : grounds) {
            const auto written = over(wash(look_.colour(ink), opacity), ground);
            EXPECT_GE(contrast(written, ground), 4.5) << ink << ", " << name;
        }
    }
    /// A page by the light of a hero, as much of it as is left there.
    Grounds lit(double left) const {
        Grounds all;
        for (const auto& tint : tints)
            all.merge(
                look_.washed(tint, left * look_.strength("glowStrength"), look_.plain(pages)));
        return all;
    }
    Grounds bars(const std::vector<std::string>& below) const {
        Grounds all;
        for (const auto& tint : tints)
            all.merge(look_.washed(tint, look_.strength("barStrength"), look_.plain(below)));
        return all;
    }
    Grounds chosenRow() const {
        return look_.washed("lavender", look_.strength("washStrength"), look_.plain({"card"}));
    }

    Stage stage_;
    const Look look_{stage_, GetParam()};
    /// The light is brightest where the first words stand below the hero.
    static constexpr double wordsOfAHero = 0.7;
    static constexpr double pillsOfAHero = 0.3;
};

INSTANTIATE_TEST_SUITE_P(Look, Contrast, ::testing::Bool(),
                         [](const auto& look) { return look.param ? "Dark" : "Light"; });

TEST_P(Contrast, OfTheMainInks) {
    for (const auto* ink : {"ink", "ink2"}) {
        expectLegible(ink, look_.plain({"ground", "groundHigh", "card", "raised", "field"}));
        for (const auto* token : {"hover", "press"})
            expectLegible(ink, look_.under(token, look_.plain(surfaces)));
        expectLegible(ink, chosenRow());
        expectLegible(ink, bars(surfaces));
        expectLegible(ink, lit(wordsOfAHero));
    }
}

TEST_P(Contrast, OfTheFaintInk) {
    expectLegible("ink3", look_.plain({"ground", "groundHigh", "card", "raised", "field"}));
    expectLegible("ink3", look_.under("hover", look_.plain({"card", "raised"})));
    expectLegible("ink3", chosenRow());
    expectLegible("ink3", lit(pillsOfAHero));
}

TEST_P(Contrast, OfTheTintedInks) {
    for (const auto& tint : tints) {
        const auto ink = tint + "Ink";
        expectLegible(ink, look_.plain(surfaces));
        expectLegible(ink, look_.under("hover", look_.plain(surfaces)));
        expectLegible(ink, bars(surfaces));
        // A message that is not to be overread stands back a little.
        expectLegible(ink, look_.plain({"raised"}), 0.9);
    }
}

TEST_P(Contrast, OfTagsAndPills) {
    for (const auto& tint : tints) {
        const auto ink = tint + "Ink";
        const auto strength = look_.strength("washStrength");
        expectLegible(ink, look_.washed(tint, strength, look_.plain(surfaces)));
        expectLegible(ink, look_.washed(tint, strength, lit(pillsOfAHero)));
        expectLegible(ink, look_.washed(tint, strength, chosenRow()));
        expectLegible(ink, look_.washed(tint, strength,
                                        look_.under("hover", look_.plain({"card", "raised"}))));
    }
}

TEST_P(Contrast, OfButtonsInABoxAndUnderThePointer) {
    std::vector<std::string> inks{"ink", "ink2"};
    for (const auto& tint : tints) inks.push_back(tint + "Ink");
    for (const auto* state : {"boxStrength", "boxHoverStrength"}) {
        const auto strength = look_.strength(state);
        for (const auto& ink : inks)
            expectLegible(ink, look_.washed(ink, strength, look_.plain(surfaces)));
        // In a bar across the page, beside its words.
        expectLegible("ink2", look_.washed("ink2", strength, bars(pages)));
        for (const auto* tint : {"lavender", "orange"}) {
            const auto bar = look_.washed(tint, look_.strength("barStrength"), look_.plain(pages));
            const auto ink = std::string(tint) + "Ink";
            expectLegible(ink, look_.washed(ink, strength, bar));
        }
    }
}

TEST_P(Contrast, OfWhatStandsOnAFullTint) {
    Grounds full;
    for (const auto* tint : {"lavender", "blue"}) {
        const auto colour = look_.colour(tint);
        full[tint] = colour;
        full[std::string(tint) + " under the pointer"] = colour.lighter(105);
        full[std::string(tint) + " pressed"] = colour.darker(106);
    }
    expectLegible("onTint", full);
}

TEST_P(Contrast, OfSelectedText) {
    expectLegible("ink", look_.washed("lavender", 0.45, look_.plain({"field"})));
}

TEST(Tints, AreTheseInBothLooks) {
    const std::map<std::string, QColor> expected{
        {"lavender", QColor::fromRgbF(0.78F, 0.62F, 1.0F)},
        {"blue", QColor::fromRgbF(0.45F, 0.8F, 1.0F)},
        {"orange", QColor::fromRgbF(1.0F, 0.65F, 0.3F)},
        {"green", QColor::fromRgbF(0.45F, 0.85F, 0.6F)},
    };
    const Stage stage;
    for (const bool dark : {true, false}) {
        const Look look(stage, dark);
        for (const auto& [tint, colour] : expected) {
            EXPECT_EQ(look.colour(tint).rgb(), colour.rgb()) << tint;
            if (dark) {
                EXPECT_EQ(look.colour(tint + "Ink").rgb(), colour.rgb()) << "written in it";
            }
        }
    }
}

}  // namespace
}  // namespace brindlet::testing
