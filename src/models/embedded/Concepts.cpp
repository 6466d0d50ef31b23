#include "models/embedded/Concepts.h"

#include <algorithm>
#include <array>

namespace brindlet {
namespace {

/// One group a row; phrases are parted by "|", their words by one blank.
constexpr auto table = std::to_array<std::string_view>({
    // Selling.
    "sale|sales|clearance|markdown|markdowns|closeout|doorbuster|doorbusters|liquidation|outlet",
    "discount|discounts|discounted|off|savings|save|rebate|cheaper|cheapest|price drop|half price|"
    "reduced|bargain|bargains|lowest price|lowest prices|best price|best prices",
    "coupon|coupons|voucher|vouchers|promo code|promo|promotion|promotional|gutschein|cupom|cupon",
    "deal|deals|offer|offers|special offer|exclusive offer|limited offer|oferta|ofertas|angebot|"
    "angebote|offre|offres|aanbieding|bundle|bundles|perks",
    "free|for free|gratis|kostenlos|no cost|complimentary|giveaway|freebie|freebies|gratuit|on us",
    "hurry|last chance|ends tonight|ends soon|ends today|today only|final hours|limited time|"
    "don't miss|act now|act fast|expires|expiring|last day|while supplies last|selling fast|"
    "don't wait|time is running|running out|before it's gone|nur heute|letzte chance|ultima chance",
    "shop|shop now|buy now|order now|buy|bestseller|bestsellers|best sellers|new arrivals|"
    "back in stock|just dropped|collection|in store|in stores|add to cart|must have|must haves",
    "trial|free trial|upgrade|upgrade now|unlock|go premium|try it free|try free|premium",
    "cart|basket|bag|left something|left behind|still interested|still thinking|wishlist|wish list",
    // Bait.
    "winner|won|win|prize|prizes|congratulations|lottery|jackpot|lucky|selected|raffle|sweepstakes|"
    "gewonnen|gewinner|gewinn|premio|glueckwunsch|gl\xC3\xBC"
    "ckwunsch|parabens|parab\xC3\xA9ns|gagne|"
    "gagn\xC3\xA9|reward|rewards|gift card|gift cards|bonus",
    "crypto|bitcoin|btc|ethereum|token|tokens|airdrop|wallet|mining|blockchain|nft|trading|forex|"
    "investment|investments|invest|investors|profit|profits|stock pick",
    "loan|loans|mortgage|mortgages|refinance|refinancing|credit score|lender|lenders|apr|"
    "debt|debts|interest rate|interest rates|consolidate|pre approved|pre qualified|tax relief",
    "insurance quote|insurance quotes|quote|quotes|warranty|solar|roofing|gutters|windows|"
    "remodel|remodeling|medicare|timeshare|life insurance|auto insurance|car insurance",
    "weight|lose weight|fat|belly|keto|diet|slim|pounds|pills|viagra|cialis|pharmacy|meds|"
    "medication|prescription|erectile|enlargement|testosterone|supplement|supplements|cbd|"
    "neuropathy|diabetes|blood sugar|tinnitus|hearing|remedy|cure|doctors|miracle",
    "casino|casinos|spins|free spins|slots|poker|betting|bets|freispiele|gambling|roulette",
    "sexy|sex|dating|singles|hot girls|lonely|naughty|adult|hookup|flirt|babes|porn|horny|nude",
    "million|million dollars|inheritance|next of kin|beneficiary|barrister|widow|late husband|"
    "transfer of funds|confidential|diplomat|foreign partner|fund transfer|compensation fund",
    "income|work from home|work at home|earn|earn money|make money|extra cash|financial freedom|"
    "be your own|mlm|home based|get paid|cash|guaranteed|risk free|no obligation|money back",
    "replica|rolex|watches|designer|handbags|oem software|diploma|degree online",
    "survey|surveys|feedback|your opinion|questionnaire|rate us|rate your|leave a review|"
    "how did we|tell us|review your",
    // Nudges to an existing customer.
    "get started|getting started|finish setting|complete your|set up your|setup your|finish your|"
    "next steps|next step|take a tour|explore|discover|learn how|did you know|get the most|"
    "make the most|tips|pro tip|book a demo|schedule a demo|demo|we miss you|miss you|come back|"
    "haven't|webinar|walkthrough|onboarding|invite your team|invite friends|refer a friend",
    "leads|lead generation|seo|backlinks|guest post|outreach|sponsored post|rank|agency|growth|"
    "15 minutes|quick call|partnership|collaboration opportunity|roi|outsource|freelancers",
    // Mass mail of any kind.
    "unsubscribe|opt out|opt-out|email preferences|manage preferences|manage your preferences|"
    "abmelden|desinscrever|descadastrar|d\xC3\xA9sabonner|mailing list|no longer wish|"
    "removed from|stop receiving|update your preferences|subscription preferences|afmelden",
    "view in browser|in your browser|web version|view online|having trouble|viewing this|"
    "view this email|can't see|display properly|read online",
    // Published content.
    "newsletter|newsletters|digest|bulletin|roundup|round up|weekly|monthly|briefing|edition|"
    "issue|vol|volume|dispatch|gazette|recap|highlights|headlines|this week|top stories|"
    "in this issue|editor|editorial|column",
    "article|articles|story|stories|blog|blog post|podcast|episode|video|videos|read more|"
    "read the|essay|interview|tutorial|guide|report|press release|author|books|book review",
    "release|released|releases|release notes|changelog|version|beta|announcing|announce|announced|"
    "announcement|launch|launches|introducing|new features|bug fixes|now available|roadmap|"
    "advisory|vulnerability|vulnerabilities|packages|patch|upstream|download",
    "jobs|job alert|job alerts|new jobs|vacancy|vacancies|hiring|positions|careers|recruiter",
    "recipe|recipes|horoscope|quote of the day|word of the day|joke|jokes|crossword|ingredients|"
    "daily|poem|trivia|weather|forecast|zodiac",
    "listings|saved search|new homes|matches your|matching your|recommended for|picked for|"
    "recommendations|you may like|you might like|suggested",
    "conference|webinars|workshop|workshops|symposium|seminar|speakers|keynote|register now|"
    "save the date|call for papers|meetup|festival|exhibition|events|concert|program",
    // People on a platform.
    "liked|likes|loved|reacted|upvoted|favorited|favourited|kudos|endorsed|retweeted|boosted|voted",
    "commented|comment|comments|replied|reply to|replies|new reply|responded|answered|wrote on|"
    "posted|new post|mentioned|mentioned you|tagged|tagged you|quoted you",
    "follow|followed|following you|follower|followers|friend request|friend requests|connection|"
    "connections|connect with|people you may|subscribed to you|wants to be|mutual friends|"
    "contact request|added you as",
    "profile|your profile|viewed your|views|timeline|wall|feed|notifications|notification|"
    "unread|unread messages|activity|trending|memories|your post|your photo|your video|status",
    "forum|topic|topics|thread|threads|board|boards|discussion|watched|watching|moderator|"
    "moderators|subforum|community|group|wiki|talk page|watchlist|private message",
    // Trade.
    "order|orders|order number|your order|order confirmation|ordered|purchase|purchased|bestellung|"
    "commande|pedido|order details|order summary|items",
    "receipt|receipts|subtotal|grand total|total|qty|quantity|vat|tax|paid|payment received|"
    "transaction|donation|thank you for your|amount paid|charged to|payout|deposit|deposited",
    "shipped|shipping|shipment|dispatched|delivery|delivered|deliver|courier|parcel|package|"
    "tracking|track your|out for delivery|on its way|in transit|carrier|pick up|pickup|collected",
    "refund|refunded|refunds|return|returned|returns|credited|credit note|credit memo|reimbursed|"
    "reimbursement|cancelled|canceled|cancellation",
    "ticket|tickets|admission|seat|seats|license key|licence key|serial number|order id",
    // Money owed.
    "bill|bills|billing|invoice|invoices|statement|statements|amount due|balance due|due date|"
    "payment due|pay by|minimum payment|outstanding|overdue|past due|unpaid|balance|rechnung|"
    "factura|facture|premium due|direct debit|autopay|auto pay|debit",
    "renew|renews|renewal|renewed|subscription|subscriptions|membership|plan|expire|expired|"
    "recurring|billing cycle|next billing|auto renew|auto renewal|lapse|lapsed",
    "payment failed|failed payment|declined|could not be processed|couldn't process|unable to "
    "charge|"
    "unable to process|payment method|update your payment|update your billing|insufficient|"
    "card details|suspended|suspension|chargeback|dispute|disputed",
    "terms|terms of service|terms of use|privacy policy|policy|policies|agreement|legal|"
    "conditions|changes to our|updates to our|updating our|effective|take effect|takes effect|gdpr",
    "price increase|price change|pricing|fees|fee|rates|increase|discontinued|discontinuing|"
    "shutting down|end of life|sunset|retiring|retired|deprecated|deprecation|storage limit|"
    "will be closed|will be deleted|inactive|inactivity",
    // Keys of the house.
    "code|verification code|security code|login code|one time|passcode|otp|pin|authentication|"
    "two factor|two step|2fa|authenticator|verify|verification|verified|confirm your",
    "password|passwords|reset|reset your|forgot|forgotten|passwort|recover|recovery|passkey",
    "sign in|signed in|signin|sign-in|log in|login|logged in|logins|new device|device|browser|"
    "ip address|location|suspicious|unusual|unrecognized|unrecognised|security alert|alert|session",
    "if you did not|if you didn't|wasn't you|was not you|wasn't me|not you|ignore this email|"
    "ignore this message|safely ignore|secure your account|did not request|didn't request",
    "api key|ssh key|access token|oauth|application access|third party|authorized|authorised|"
    "deploy key|credentials|secret|certificate|encryption",
    // Belonging.
    "welcome|welcome to|account is ready|account has been|registration|registering|registered|"
    "signing up|thanks for joining|username|user name|your account|activated|created",
    "invite|invited|invites|invitation|invitations|inviting|join|accept|accept invitation|"
    "collaborate|shared with|shared a|share|access to|given you access|added you",
    "administrator|admin|role|permissions|owner|organization|organisation|workspace|team|member|"
    "members|removed|approved|rejected|declined your|banned|blocked|deleted|disabled|reinstated|"
    "violates|violation|guidelines|limit|quota|restricted|taken down",
    // Persons.
    "hi|hey|hello|dear|dearest|good morning|good afternoon",
    "cheers|regards|best regards|kind regards|love|xoxo|sincerely|talk soon|take care|warmly|"
    "see you|thanks again|sent from my|many thanks|thx",
    "i|i'm|i'll|i've|i'd|me|my|mine|myself",
    "let me know|what do you|do you|can you|could you|would you|are you|attached|please find|"
    "fyi|asap|as we discussed|discussed|call me|give me|i think|we need|we should",
    "original message|forwarded by|wrote|forwarded message|from to subject|cc|sent by|re",
    "lunch|dinner|coffee|weekend|tomorrow|tonight|yesterday|mom|dad|kids|family|birthday|party|"
    "holiday|vacation|trip|game|baby|wedding|house",
    "appointment|appointments|reminder|meeting|calendar|schedule|scheduled|rescheduled|reservation|"
    "booking|booked|itinerary|flight|check in|check out|when|where|agenda|invitees|dentist|"
    "clinic|visit|event|due",
    // Machines.
    "failure|failed|error|errors|warning|warnings|critical|cron|build|backup|server|host|job|"
    "incident|outage|maintenance|monitor|status report|disk|database|daemon|log|exit code|"
    "export|import|test email|test message|queue|deployment|scan|abuse|undelivered|undeliverable|"
    "mailer|recipient|recipients|permanent error|smtp|postmaster|scheduled task|automatic reply|"
    "out of office|auto reply",
});

}  // namespace

Concepts::Concepts() {
    for (std::size_t group = 0; group < table.size(); ++group) {
        std::string_view rest = table[group];
        while (!rest.empty()) {
            const std::string_view phrase = rest.substr(0, rest.find('|'));
            rest.remove_prefix(std::min(rest.size(), phrase.size() + 1));
            std::uint64_t key = hashStart;
            for (std::size_t at = 0; at < phrase.size();) {
                const std::string_view word = phrase.substr(at, phrase.find(' ', at) - at);
                key = extended(key, word);
                at += word.size() + 1;
            }
            groups_.emplace(key, group);  // a phrase of two groups keeps its first
        }
    }
}

std::size_t Concepts::count() const {
    return table.size();
}

}  // namespace brindlet
