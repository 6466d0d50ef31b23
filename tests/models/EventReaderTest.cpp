#include "models/embedded/EventReader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "classify/Classifier.h"
#include "models/embedded/Concepts.h"
#include "models/embedded/EmbeddedModel.h"
#include "models/embedded/EventTables.h"
#include "models/embedded/Tokens.h"

namespace brindlet {
namespace {

std::string read(const std::string& subject) {
    const auto event = EventReader().read(subject);
    return event ? event->action + " / " + event->object : "nothing";
}

TEST(EventReader, TellsWhatHappenedAndToWhat) {
    struct Row {
        std::string subject;
        std::string event;
    };
    const std::vector<Row> rows{
        {"Maya Lind commented on your photo", "remarked / photo"},
        {"New comment on \"Baking bread at night\"", "remarked / "},
        {"robin77 has subscribed to your channel", "followed / channel"},
        {"Your Cloudnest Photos subscription will be cancelled",
         "canceled / cloudnest photos subscription"},
        {"Your order #48213 has shipped", "shipped / order"},
        {"Your parcel is on its way", "shipped / parcel"},
        {"Kettle & Co: 30% off teapots this weekend", "discounted / kettle co teapots"},
        {"Last chance: everything on sale, today only!", "discounted / "},
        {"Your March statement is ready", "billed / "},
        {"New sign-in from Firefox on Linux", "signed / firefox linux"},
        {"Reset your password", "reset / "},
        {"Ines Costa invited you to join the Bakery team", "invited / join bakery team"},
        {"Appointment reminder: dentist on Tuesday at 9:30", "scheduled / reminder dentist"},
        {"Ihre Rechnung vom 3. M\u00E4rz", "billed / "},
        {"Votre colis a \u00E9t\u00E9 exp\u00E9di\u00E9", "shipped / colis"},
        {"Twoja przesy\u0142ka jest w drodze", "shipped / przesy\u0142ka"},
        {"Twoje zam\u00F3wienie zosta\u0142o anulowane", "canceled / zam\u00F3wienie"},
    };
    for (const auto& row : rows) EXPECT_EQ(read(row.subject), row.event) << row.subject;
}

TEST(EventReader, SaysNothingWhereItKnowsNoDeed) {
    for (const std::string subject :
         {"", "   ", "Hello", "Dinner on Friday?", "1234", "\"Your order has shipped\"",
          "the plans for the house", "\xFF\xFE", "\xE2\x80\x9C", "Re:"})
        EXPECT_EQ(read(subject), "nothing") << subject;
}

TEST(EventReader, AnyBytesAreRead) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
    read(bytes + "shipped" + bytes);
    read(std::string(100'000, '"'));
    read(std::string(100'000, 'a') + " shipped");
}

TEST(EventReader, EveryPhraseOfItsTablesCanBeFound) {
    const std::vector<std::span<const std::string_view>> tables{eventActionWords(), eventGoods(),
                                                                eventFilling()};
    for (const auto table : tables) {
        ASSERT_LT(table.size(), 255U);
        for (std::string_view rest : table)
            while (!rest.empty()) {
                const auto phrase = rest.substr(0, rest.find('|'));
                rest.remove_prefix(std::min(rest.size(), phrase.size() + 1));
                EXPECT_FALSE(phrase.empty());
                EXPECT_LE(tokens(phrase, 100).size(), 4U) << phrase;
                EXPECT_TRUE(phrase.find('*') == std::string_view::npos ||
                            (phrase.find(' ') == std::string_view::npos && phrase.size() > 3))
                    << phrase;
            }
    }
}

struct Pair {
    std::string one, other;
};

/// Whether the model's answers make the two subjects kin, through the classifier that asks it.
bool areKin(const Pair& pair) {
    static EmbeddedModel model;
    static const Classifier classifier(model);
    const auto one = classifier.event(pair.one);
    const auto other = classifier.event(pair.other);
    return one && other && Classifier::sameEvent(*one, *other);
}

TEST(EmbeddedModelEvents, SubjectsOfOneEventAreKin) {
    const std::vector<Pair> pairs{
        {"Maya Lind commented on your photo", "Tom and 3 others commented on your photo"},
        {"New comment on \"My cat sleeps\"", "New comment on \"Fixing the roof, part 2\""},
        {"Ana liked your post", "Ben Okafor liked your post"},
        {"Ana reacted to your story", "5 people liked your story"},
        {"kate_m started following you", "You have a new follower: drew88"},
        {"pixelgoat just uploaded a video", "Sara Kim uploaded a video: Winter walk"},
        {"Someone viewed your profile", "Jon Bell viewed your profile"},
        {"New reply to \"Glaze keeps cracking\"", "New reply to \"Kiln will not heat\""},
        {"Lea mentioned you in a comment thread", "Kim mentioned you in a thread"},
        {"You have 2 new messages", "You have a new message from Ali"},
        {"Your order #48213 has shipped", "Order 99-1043 is on its way"},
        {"Your package was delivered", "Delivered: your package from Bookbarn"},
        {"Your parcel is delayed", "Sorry, your parcel has been delayed again"},
        {"Your order is ready for pickup", "Order 77 is ready for collection"},
        {"Order confirmation 8841", "Thanks for your order 8912, Robin"},
        {"Your receipt from Bookbarn #11", "Receipt for your purchase #12"},
        {"Refund issued: $18.20", "Your refund of $7 is on the way"},
        {"Your booking has been cancelled", "Booking 1182 was canceled"},
        {"Your March bill is ready", "Your April bill is here"},
        {"Invoice 2024-118 from Norden", "Invoice 2024-131 from Norden"},
        {"Payment failed for your Planly account", "Your Planly account: payment declined"},
        {"Your membership renews on 4 May", "Membership renewal on 9 June"},
        {"Your card expires soon", "Your card is about to expire"},
        {"Updates to our Terms of Service", "Changes to our Privacy Policy"},
        {"New sign-in from Firefox on Linux", "New login from Firefox"},
        {"481920 is your verification code", "Your security code: 118822"},
        {"Reset your password", "Password reset"},
        {"Ends tonight: 40% off everything", "Last day! Save 25% sitewide"},
        {"Your exclusive discount is waiting", "A special offer just for you"},
        {"30% off winter boots", "Winter boots: the big sale starts now"},
        {"You left something in your cart", "Still in your cart"},
        {"How was your stay? Leave a review", "Rate your stay"},
        {"14 new jobs for you", "3 new jobs in Leeds"},
        {"Weekly digest for 3 May", "Your weekly digest"},
        {"Ihre Bestellung wurde versandt", "Bestellung 4411 ist unterwegs"},
        {"Ihre Rechnung f\u00FCr M\u00E4rz", "Ihre Rechnung f\u00FCr April"},
        {"20 % Rabatt auf alles", "Nur heute: 15 % Rabatt"},
        {"Votre commande a \u00E9t\u00E9 exp\u00E9di\u00E9"
         "e",
         "Votre commande n\u00B0 22 est en route"},
        {"Votre facture de mars", "Votre facture d'avril"},
        {"Tu pedido ha sido enviado", "Tu pedido 81 est\u00E1 en camino"},
        {"Il tuo pacco \u00E8 in consegna", "Il tuo pacco \u00E8 stato spedito"},
        {"Seu pedido foi enviado", "Seu pedido 12 saiu para entrega"},
        {"Je pakket is onderweg", "Je pakket is verzonden"},
        {"Twoja paczka zosta\u0142a nadana", "Twoja paczka jest w drodze"},
        {"Marta skomentowa\u0142a Twoje zdj\u0119"
         "cie",
         "Jan skomentowa\u0142 Twoje zdj\u0119"
         "cie"},
    };
    for (const auto& pair : pairs) {
        SCOPED_TRACE(read(pair.one) + " and " + read(pair.other));
        EXPECT_TRUE(areKin(pair)) << pair.one << " and " << pair.other;
    }
}

TEST(EmbeddedModelEvents, SubjectsOfDifferentEventsAreNot) {
    const std::vector<Pair> pairs{
        {"Maya Lind commented on your photo", "Maya Lind liked your photo"},
        {"Ana liked your photo", "Ana liked your comment on the roof"},
        {"kate_m started following you", "kate_m sent you a message"},
        {"You have a friend request from Ali", "You have a new message from Ali"},
        {"Your order has shipped", "Your order was delivered"},
        {"Your order has shipped", "Your order has been cancelled"},
        {"Your order has shipped", "Order confirmation 8841"},
        {"Your parcel is delayed", "Your parcel was delivered"},
        {"Your subscription will be cancelled", "Your subscription renews on 4 May"},
        {"Your subscription was cancelled", "Your order was cancelled"},
        {"Your booking has been cancelled", "Your booking is confirmed"},
        {"Refund issued: $18.20", "Payment received: $18.20"},
        {"Payment failed for your account", "Payment received, thank you"},
        {"Your March bill is ready", "Your payment was declined"},
        {"Your March bill is ready", "30% off your next bill"},
        {"Invoice for Cloud Hosting", "Invoice for Domain Names"},
        {"Card purchase exceeded preset amount", "Card withdrawal exceeded preset amount"},
        {"New sign-in from Firefox", "Reset your password"},
        {"Your verification code is 119922", "Your password was changed"},
        {"Your account was suspended", "Your account is ready: welcome"},
        {"Updates to our Terms of Service", "Price increase from 1 June"},
        {"Ines invited you to the Bakery team", "Ines shared a document with you"},
        {"14 new jobs for you", "14 new listings for your saved search"},
        {"30% off winter boots", "30% off garden chairs"},
        {"Your card expires soon", "Your free trial ends soon"},
        {"How was your stay? Leave a review", "Your reservation confirmed"},
        {"You left something in your cart", "Your order has shipped"},
        {"Welcome to Planly", "We miss you at Planly"},
        {"Dinner on Friday?", "Lunch on Monday?"},
        {"Ihre Bestellung wurde versandt", "Ihre Bestellung wurde storniert"},
        {"Ihre Rechnung f\u00FCr M\u00E4rz", "Zahlung fehlgeschlagen"},
        {"Votre commande a \u00E9t\u00E9 exp\u00E9di\u00E9"
         "e",
         "Votre commande a \u00E9t\u00E9 annul\u00E9"
         "e"},
        {"Tu pedido ha sido enviado", "Tu pedido ha sido entregado"},
        {"Il tuo pacco \u00E8 in consegna", "Il tuo abbonamento \u00E8 stato rinnovato"},
        {"Seu pedido foi enviado", "Seu pagamento foi recusado: pagamento recusado"},
        {"Je pakket is onderweg", "Je factuur van maart"},
        {"Twoja paczka jest w drodze", "Twoja faktura za marzec"},
    };
    for (const auto& pair : pairs) {
        SCOPED_TRACE(read(pair.one) + " and " + read(pair.other));
        EXPECT_FALSE(areKin(pair)) << pair.one << " and " << pair.other;
    }
}

}  // namespace
}  // namespace brindlet
