#include "models/embedded/EventTables.h"

#include <algorithm>

namespace brindlet {
namespace {

struct Row {
    EventAction action;
    std::string_view words;
};

using enum EventAction::Scope;

// A name's first five letters are no word of an object that another deed is done to, or the two
// would pass for one: hence "remarked", for "liked your comment" is another event.
constexpr auto rows = std::to_array<Row>({
    // Undone and gone wrong: said of many things, and always the news.
    {{"canceled"},
     "canceled|cancelled|cancellation|storniert*|stornierung|gekundigt|kundigung|annule*|"
     "annulation|"
     "resilie*|resiliation|cancelad*|cancelacion|anulad*|anulacion|annullat*|annullamento|disdetta|"
     "cancelamento|geannuleerd|annulering|opgezegd|opzegging|anulowan*|anulowal*"},
    {{"refunded", goods},
     "refund*|erstatt*|ruckzahlung|gutschrift|rembours*|reembols*|rimbors*|estorno|estornad*|"
     "terugbetal*|zwrot srodkow|zwrot pieniedzy|zwrocono"},
    {{"declined"},
     "payment failed|failed payment|payment declined|was declined|could not be processed|"
     "unable to charge|zahlung fehlgeschlagen|zahlung abgelehnt|fehlgeschlagen*|paiement refuse|"
     "paiement echoue|echec du paiement|pago rechazado|pago fallido|pagamento rifiutato|"
     "pagamento non riuscito|pagamento recusado|betaling mislukt|betaling geweigerd|"
     "platnosc odrzucona|nieudana platnosc"},
    {{"suspended"},
     "suspended|suspension|deactivated|disabled|banned|gesperrt|deaktiviert|suspendu*|desactive*|"
     "suspendid*|suspens*|desactivad*|sospes*|disattivat*|desativad*|opgeschort|geblokkeerd|"
     "uitgeschakeld|zawieszon*|zablokowan*|wylaczon*"},
    {{"delayed", goods},
     "delayed|delay|verspatet|verzogert*|verspatung|retard|retarde*|retrasad*|retraso|in ritardo|"
     "ritardo|atrasad*|atraso|vertraagd|vertraging|opozni*"},
    // On its way.
    {{"arrived", goods},
     "delivered|zugestellt|geliefert|livre*|entregad*|consegnat*|entregue|bezorgd|afgeleverd|"
     "dostarczon*|doreczon*"},
    {{"collected", goods},
     "ready for pickup|ready for collection|ready to collect|abholbereit|zur abholung|pret au "
     "retrait|"
     "disponible en point relais|listo para recoger|pronto per il ritiro|pronto para retirada|"
     "klaar om te halen|klaar voor afhalen|gotowa do odbioru|gotowe do odbioru"},
    {{"shipped", goods},
     "shipped|dispatched|on its way|on the way|out for delivery|in transit|has been sent|versandt|"
     "versendet|verschickt|unterwegs|expedie*|en route|en chemin|enviad*|en camino|en reparto|"
     "spedit*|in consegna|in viaggio|despachad*|a caminho|saiu para entrega|verzonden|onderweg|"
     "wyslan*|nadan*|w drodze"},
    // People on a platform.
    {{"mentioned", after},
     "mentioned|tagged|erwahnt|markiert|mentionne*|identifie*|mencion*|etiquetad*|etiqueto|"
     "menzionat*|"
     "taggat*|marcou|marcad*|genoemd|vermeld|getagd|wspomnial*|oznaczyl*"},
    {{"replied", after},
     "replied|reply|replies|responded|answered|geantwortet|antwortete|antwort|antworten|repondu|"
     "reponse|reponses|respondio|respondido|respuesta|respuestas|risposto|risposta|risposte|"
     "respondeu|resposta|respostas|geantwoord|antwoord|antwoorden|odpowiedzial*|odpowiedz*"},
    {{"remarked", after},
     "commented|comment|comments|kommentiert|kommentar*|commente|commentaire*|comento|comentado|"
     "comentario*|commentato|commento|commenti|comentou|heeft "
     "gereageerd|reactie|reacties|reageerde|"
     "skomentowal*|komentarz*"},
    {{"liked", after},
     "liked|likes|loved|reacted|upvoted|gefallt|gefallen|reagiert|aime|aiment|reagi|le gusta|gusto|"
     "gustado|reacciono|reaccionado|piace|piaciuto|reagito|curtiu|gostou|reagiu|vindt je|vindt "
     "jouw|"
     "gereageerd op|polubil*|zareagowal*"},
    {{"followed", after},
     "has subscribed|subscribed to you|subscribed to your|new subscriber|started "
     "following|followed "
     "you|follows you|is following|following you|new follower|new followers|wants to follow|folgt "
     "dir|folgt ihnen|folgt jetzt|hat dich abonniert|neuer follower|vous suit|te suit|nouvel "
     "abonne|"
     "te sigue|empezo a seguirte|nuevo seguidor|nuevos seguidores|ti segue|seguirti|nuovo follower|"
     "nuovi follower|comecou a seguir|segue voce|novo seguidor|volgt je|volgt jou|nieuwe volger|"
     "obserwuje cie|zaczal cie obserwowac|nowy obserwujacy"},
    {{"connected", after},
     "friend request|friend requests|friend suggestion|connection request|contact request|wants to "
     "connect|wants to be|people you may know|freundschaftsanfrage*|kontaktanfrage*|demande d'ami|"
     "demande de contact|invitation a se connecter|solicitud de amistad|solicitud de contacto|"
     "richiesta di amicizia|richiesta di collegamento|pedido de amizade|solicitacao de amizade|"
     "vriendschapsverzoek|connectieverzoek|zaproszenie do znajomych|zaproszenie do grona"},
    {{"viewed", after},
     "viewed|visited your|looked at|hat ihr profil|hat dein profil|a consulte|a vu votre|visito tu|"
     "ha visto tu|ha visualizzato|visualizou|heeft je profiel|obejrzal*|odwiedzil*"},
    {{"uploaded", after},
     "uploaded|just posted|new video|new photo|new photos|added a photo|shared a photo|hochgeladen|"
     "neues video|neues foto|neue fotos|mis en ligne|nouvelle video|nouvelle photo|subio|ha subido|"
     "nuevo video|nueva foto|ha caricato|nuovo video|nuova foto|enviou um video|novo video|nova "
     "foto|"
     "geupload|nieuwe video|nieuwe foto|przeslal*|nowy film|nowe zdjecie"},
    {{"wrote", after},
     "sent you a message|new message|new messages|private message|unread message|unread messages|"
     "neue nachricht|neue nachrichten|private nachricht|nouveau message|nouveaux messages|message "
     "prive|nuevo mensaje|mensajes nuevos|mensaje privado|nuovo messaggio|nuovi messaggi|messaggio "
     "privato|nova mensagem|novas mensagens|mensagem privada|nieuw bericht|nieuwe berichten|nowa "
     "wiadomosc|nowe wiadomosci"},
    {{"invited", after},
     "invited|invites|invitation|inviting|eingeladen|einladung|ladt dich|ladt sie|invite a|vous "
     "invite|"
     "invitado|invitada|te invita|invitacion|invitato|invitata|ti invita|invito|convidou|convite|"
     "uitgenodigd|uitnodiging|nodigt je|zaprosil*|zaproszenie|zaprasza"},
    {{"shared", after},
     "shared|geteilt|freigegeben|partage|ha compartido|compartio|ha "
     "condiviso|compartilhou|partilhou|"
     "gedeeld|udostepnil*"},
    {{"joined", after},
     "joined|has joined|beigetreten|a rejoint|se ha unido|se unio|si e unito|entrou no|entrou "
     "em|is "
     "lid geworden|dolaczyl*"},
    // Keys of the house.
    {{"reset"},
     "reset your password|password reset|reset password|forgot your password|passwort zurucksetzen|"
     "reinitialis*|restablec*|reimposta*|ripristin*|redefin*|wachtwoord opnieuw|wachtwoord "
     "herstellen|"
     "resetowan*|zresetuj"},
    {{"verified"},
     "verification code|security code|login code|sign in code|one time code|one time password|"
     "confirmation code|access code|verify your|confirm your email|confirm your account|"
     "bestatigungscode|sicherheitscode|anmeldecode|einmalcode|code de verification|code de "
     "securite|"
     "code de connexion|confirmez votre|codigo de verificacion|codigo de seguridad|codigo de "
     "acceso|"
     "codice di verifica|codice di sicurezza|codice di accesso|codigo de verificacao|"
     "codigo de seguranca|verificatiecode|beveiligingscode|inlogcode|kod weryfikacyjny|"
     "kod bezpieczenstwa|kod logowania"},
    {{"signed"},
     "new sign in|sign in from|new login|login from|new device|signed in|logged in|sign in alert|"
     "login alert|neue anmeldung|anmeldung von|neues gerat|nouvelle connexion|nouvel appareil|"
     "nuevo inicio de sesion|inicio de sesion|nuevo dispositivo|nuovo accesso|nuovo dispositivo|"
     "novo acesso|novo login|novo dispositivo|nieuwe inlog|nieuw apparaat|nowe logowanie|"
     "nowe urzadzenie"},
    {{"changed"},
     "password changed|password was changed|password has been changed|email changed|address "
     "changed|"
     "passwort geandert|passwort wurde geandert|mot de passe modifie|contrasena cambiada|"
     "contrasena modificada|password modificata|senha alterada|wachtwoord gewijzigd|"
     "haslo zostalo zmienione|zmiana hasla"},
    // Goods and money.
    {{"charged"},
     "card purchase|purchase exceeded|kartenzahlung|paiement par carte|compra con tarjeta"},
    {{"withdrew"}, "withdrawal|withdrawn|abhebung|retrait|retiro|prelievo|saque|opname|wyplata"},
    {{"increased"},
     "price increase|price change|prices are changing|preisanpassung|preiserhohung|augmentation|"
     "subida de precios|subida de precio|aumento dei prezzi|aumento de "
     "precos|reajuste|prijsverhoging|"
     "prijswijziging|podwyzka|zmiana cen"},
    {{"updated"},
     "terms of service|terms of use|privacy policy|user agreement|updates to our|changes to our|"
     "nutzungsbedingungen|datenschutzerklarung|conditions generales|conditions d'utilisation|"
     "politique de confidentialite|terminos y condiciones|politica de privacidad|terminos del "
     "servicio|"
     "termini di servizio|condizioni d'uso|informativa sulla privacy|termos de uso|"
     "politica de privacidade|algemene voorwaarden|privacyverklaring|regulaminu|polityki "
     "prywatnosci"},
    {{"overdue"},
     "overdue|past due|payment "
     "reminder|mahnung|zahlungserinnerung|impaye*|relance|vencid*|impagad*|"
     "sollecito|scadut*|em atraso|aanmaning|betalingsherinnering|zalegl*|wezwanie do zaplaty"},
    {{"hired"},
     "new jobs|job alert|jobs for you|jobs in|hiring|neue jobs|stellenangebote|jobangebote|"
     "offres d'emploi|nouvelles offres|ofertas de empleo|nuevas ofertas|offerte di lavoro|"
     "nuove offerte|novas vagas|vagas em|vagas para|nieuwe vacatures|vacatures|oferty pracy|"
     "nowe oferty"},
    {{"recommended"},
     "recommended for you|picked for you|you may like|you might like|matches your|recommendations|"
     "new listings|saved search|empfohlen|empfehlungen|suchauftrag|neue treffer|recommande*|"
     "nouvelles annonces|recomendad*|nuevos anuncios|consigliat*|nuovi annunci|novos anuncios|"
     "aanbevolen|zoekopdracht|polecan*|nowe ogloszenia"},
    {{"discounted"},
     "discount*|1 off|sale|coupon|coupons|deal|deals|promo code|save 1|save up|save big|save "
     "on|savings|clearance|price drop|"
     "special offer|half price|voucher|vouchers|offer|offers|rabatt*|angebot|angebote|gutschein|"
     "gutscheine|sparen|schlussverkauf|ausverkauf|sale|reduziert|remise*|soldes|promo|promotion|"
     "promotions|offre|offres|reduction|reductions|bon plan|bons plans|descuento*|rebajas|oferta|"
     "ofertas|ahorra|cupon|cupones|sconto|sconti|saldi|offerta|offerte|risparmia|desconto*|"
     "promocao|"
     "promocoes|cupom|economize|korting*|aanbieding|aanbiedingen|uitverkoop|bespaar|znizk*|rabat|"
     "rabaty|wyprzedaz|promocja|promocje|oszczedz"},
    {{"renewed"},
     "renew|renews|renewed|renewal|verlanger*|renouvel*|renov*|rinnov*|verleng*|odnowi*|odnawia*|"
     "przedluz*"},
    {{"expired"},
     "expires|expired|expiring|about to expire|lauft ab|abgelaufen|expire bientot|a expire|caduca|"
     "caducad*|in scadenza|expirou|expira em|verloopt|verlopen|wygasa|wygasl*"},
    {{"paid"},
     "payment received|payment confirmation|received your payment|for your payment|zahlung "
     "erhalten|zahlungseingang|zahlungsbestatigung|paiement recu|"
     "confirmation de paiement|pago recibido|confirmacion de pago|pagamento ricevuto|"
     "conferma di pagamento|pagamento recebido|pagamento confirmado|betaling ontvangen|"
     "betalingsbevestiging|platnosc otrzymana|potwierdzenie platnosci"},
    {{"billed"},
     "bill|invoice|statement|rechnung*|kontoauszug|facture|releve|factura|extracto|fattura|"
     "bolletta|"
     "estratto conto|fatura|boleto|extrato|factuur|rekening|afschrift|faktura|faktury|rachunek|"
     "rachunku|wyciag"},
    {{"confirmed", goods},
     "order confirmation|order received|order confirmed|for your order|"
     "received your order|we got your order|bestellbestatigung|bestellung erhalten|ihre bestellung|"
     "deine bestellung|confirmation de commande|commande confirmee|votre commande|"
     "confirmacion de pedido|pedido confirmado|tu pedido|su pedido|pedido recibido|"
     "conferma d'ordine|conferma ordine|il tuo ordine|confirmacao de pedido|seu pedido|"
     "pedido recebido|orderbevestiging|bestelbevestiging|je bestelling|uw bestelling|"
     "potwierdzenie zamowienia|twoje zamowienie"},
    {{"receipt", goods},
     "receipt|receipts|quittung|beleg|recu de|recibo|ricevuta|comprovante|betaalbewijs|kassabon|"
     "paragon|potwierdzenie zakupu"},
    {{"scheduled"},
     "appointment|booking confirmed|booking confirmation|reservation confirmed|your reservation|"
     "terminbestatigung|terminerinnerung|ihr termin|dein termin|buchungsbestatigung|rendez vous|"
     "votre reservation|reservation confirmee|tu cita|su cita|reserva confirmada|tu reserva|"
     "appuntamento|prenotazione confermata|consulta|reserva confirmada|afspraak|"
     "boekingsbevestiging|wizyta|wizyty|potwierdzenie rezerwacji"},
    // Selling.
    {{"abandoned", after},
     "left something|left behind|left in your cart|still in your cart|your cart|your "
     "basket|warenkorb|"
     "votre panier|tu carrito|tu cesta|tuo carrello|seu carrinho|je "
     "winkelwagen|winkelmandje|koszyk*"},
    {{"surveyed"},
     "survey|feedback|your opinion|rate your|rate us|review your|leave a review|how did we do|how "
     "was|"
     "umfrage|ihre meinung|deine meinung|bewerten|bewerte|sondage|votre avis|encuesta|tu opinion|"
     "valora|sondaggio|la tua opinione|lascia una recensione|pesquisa|sua opiniao|avalie|beoordeel|"
     "je mening|uw mening|ankieta|ocen|twoja opinia"},
    {{"won"},
     "winner|you won|you have won|congratulations|prize|gewonnen|gewinner|vous avez gagne|gagnant|"
     "has ganado|ganador|hai vinto|vincitore|voce "
     "ganhou|ganhador|winnaar|wygral*|wygrana|zwyciezc*"},
    {{"trialed"},
     "free trial|trial ends|trial is ending|trial has ended|trial period|testphase|probezeit|"
     "essai gratuit|prueba gratis|prueba gratuita|prova gratuita|teste gratis|proefperiode|"
     "okres probny"},
    {{"launched"},
     "new arrivals|just landed|just dropped|just in|introducing|now available|back in stock|"
     "new collection|neuheiten|neue kollektion|jetzt erhaltlich|wieder da|nouveautes|nouvelle "
     "collection|novedades|nueva coleccion|ya disponible|novita|nuova collezione|novidades|"
     "nova colecao|nieuwe collectie|nieuw binnen|nowosci|nowa kolekcja"},
    {{"completed"},
     "complete your|finish setting up|finish your|set up your|get started|vervollstandig*|"
     "completez votre|finalisez|completa tu|completa il|complete seu|maak je profiel|uzupelnij"},
    // Published.
    {{"released"},
     "released|release notes|new version|release|ist erschienen|neue version|nouvelle version|"
     "nueva version|nuova versione|nova versao|nieuwe versie|nowa wersja"},
    {{"published"},
     "newsletter|digest|weekly|daily|monthly|briefing|roundup|issue|bulletin|edition|"
     "wochenruckblick|"
     "rundbrief|ausgabe|lettre|infolettre|boletin|bollettino|boletim|nieuwsbrief|biuletyn"},
    {{"welcomed"},
     "welcome|willkommen|bienvenue|bienvenid*|benvenut*|bem vindo|bem vinda|welkom|witamy|witaj"},
    {{"reminded"},
     "reminder|remember|don forget|erinnerung|nicht vergessen|rappel|oubliez pas|recordatorio|"
     "no olvides|promemoria|non dimenticare|lembrete|nao esqueca|herinnering|vergeet niet|"
     "przypomnien*|nie zapomnij"},
    {{"alerted"},
     "alert|alerts|warning|warnung|hinweis|alerte|avertissement|alerta|aviso|avviso|avvertimento|"
     "waarschuwing|melding|ostrzezenie|uwaga"},
});

constexpr auto actions = [] {
    std::array<EventAction, rows.size()> out{};
    std::ranges::transform(rows, out.begin(), &Row::action);
    return out;
}();
constexpr auto actionWords = [] {
    std::array<std::string_view, rows.size()> out{};
    std::ranges::transform(rows, out.begin(), &Row::words);
    return out;
}();

constexpr std::array<std::string_view, 1> goodsTable{
    "order|orders|package|parcel|item|items|shipment|delivery|purchase|payment|subscription|"
    "membership|booking|reservation|ticket|tickets|appointment|bestellung|paket|sendung|lieferung|"
    "zahlung|abo|abonnement|mitgliedschaft|buchung|termin|commande|colis|livraison|paiement|"
    "adhesion|"
    "rendez|pedido|paquete|envio|pago|suscripcion|reserva|cita|ordine|ordini|pacco|spedizione|"
    "consegna|"
    "pagamento|abbonamento|prenotazione|appuntamento|encomenda|pacote|entrega|assinatura|consulta|"
    "bestelling|pakket|zending|levering|betaling|lidmaatschap|boeking|afspraak|zamowieni*|paczk*|"
    "przesylk*|dostaw*|platnosc|subskrypcj*|rezerwacj*|wizyt*"};

constexpr std::array<std::string_view, 1> fillingTable{
    // Little words.
    "a|an|the|to|of|on|in|for|from|your|you|yours|and|or|is|are|was|were|new|this|that|these|those|"
    "it|"
    "its|with|at|by|has|have|had|we|our|ours|my|me|us|be|been|being|will|would|can|could|shall|"
    "should|"
    "may|just|now|not|no|yes|all|any|some|more|most|so|as|if|but|about|into|out|up|down|over|after|"
    "before|until|than|then|there|here|their|they|he|she|his|her|him|i|am|do|does|did|don|re|fwd|"
    "fw|aw|what|when|where|who|how|why|got|get|gets|one|two|also|very|too|via|per|please|let|see|"
    "der|die|das|den|dem|des|ein|eine|einen|einem|einer|und|oder|ist|sind|war|wurde|wird|werden|"
    "hat|"
    "haben|sie|ihr|ihre|ihren|ihrem|ihrer|du|dein|deine|deinen|deinem|deiner|dir|dich|wir|uns|"
    "unser|"
    "unsere|mit|von|vom|zu|zum|zur|fur|auf|aus|bei|beim|im|am|an|ab|bis|nach|nur|noch|jetzt|neu|"
    "neue|"
    "neuer|neues|neuen|es|ich|nicht|auch|wie|was|so|alle|alles|hallo|bitte|"
    "le|la|les|un|une|des|du|de|et|ou|est|sont|a|ont|au|aux|en|dans|sur|pour|par|avec|sans|votre|"
    "vos|ton|ta|tes|notre|nos|vous|tu|te|toi|nous|ce|cet|cette|ces|il|elle|on|se|sa|son|ses|qui|"
    "que|"
    "ne|pas|plus|tout|tous|toute|toutes|nouveau|nouvelle|nouvel|nouveaux|ete|bientot|"
    "el|los|las|una|unos|unas|del|al|y|e|o|es|son|ha|han|sido|esta|estan|su|sus|tu|tus|con|sin|por|"
    "para|lo|se|te|ti|nos|mi|mis|nuevo|nueva|nuevos|nuevas|ya|hoy|no|todo|todos|toda|todas|"
    "gli|i|dei|degli|delle|della|dello|dell|alla|allo|alle|ai|nel|nella|il|uno|sono|stato|stata|e|"
    "ed|"
    "che|di|da|per|con|tuo|tua|tuoi|tue|suo|sua|nuovo|nuova|nuovi|nuove|oggi|non|tutto|tutti|tutte|"
    "o|os|as|um|uma|do|da|dos|das|no|na|nos|nas|ao|aos|em|seu|sua|seus|suas|foi|esta|com|sem|por|"
    "voce|"
    "novo|nova|novos|novas|hoje|nao|tudo|"
    "het|een|van|voor|met|op|aan|bij|naar|door|uit|om|te|is|zijn|werd|wordt|heeft|hebben|je|jouw|"
    "jou|"
    "uw|u|we|wij|ons|onze|en|of|niet|nog|nu|ook|er|nieuw|nieuwe|alle|alles|dit|dat|deze|die|"
    "i|w|we|z|ze|na|do|od|po|za|o|u|dla|jest|sa|zostal|zostala|zostalo|zostaly|twoj|twoja|twoje|"
    "twojego|twojej|twoim|nasz|nasza|nasze|ci|cie|ty|sie|to|ten|ta|te|nie|juz|nowy|nowa|nowe|"
    // What stands in every such subject, whatever it is about.
    "still|again|soon|today|tonight|tomorrow|week|weekend|day|days|month|hours|hour|left|last|"
    "chance|"
    "final|only|early|time|everything|sitewide|storewide|site|store|online|inside|waiting|wait|"
    "ends|"
    "end|ending|starts|start|starting|hurry|exclusive|special|limited|extra|big|biggest|best|great|"
    "huge|amazing|free|plus|today|dont|miss|out|gift|surprise|ready|available|confirmation|"
    "confirmed|"
    "notification|notice|update|information|important|number|nr|no|id|ref|hello|hi|hey|dear|thanks|"
    "thank|thankyou|january|february|march|april|june|july|august|september|october|november|"
    "december|"
    "monday|tuesday|wednesday|thursday|friday|saturday|sunday|"
    "heute|morgen|tage|tag|woche|wochenende|stunden|letzte|letzter|chance|endet|nummer|exklusiv*|"
    "gratis|kostenlos*|danke|januar|februar|marz|mai|juni|juli|oktober|dezember|montag|dienstag|"
    "mittwoch|donnerstag|freitag|samstag|sonntag|"
    "aujourd|hui|demain|jours|jour|semaine|heures|derniere|derniers|dernier|jusqu|gratuit*|"
    "exclusif*|"
    "merci|bonjour|janvier|fevrier|mars|avril|juin|juillet|aout|septembre|octobre|novembre|"
    "decembre|"
    "hasta|dias|dia|semana|horas|ultima|ultimo|ultimos|exclusiv*|gracias|hola|enero|febrero|marzo|"
    "abril|mayo|junio|julio|agosto|septiembre|octubre|noviembre|diciembre|"
    "fino|giorni|giorno|settimana|ore|ultimi|ultime|esclusiv*|grazie|ciao|gennaio|febbraio|aprile|"
    "maggio|giugno|luglio|settembre|ottobre|novembre|dicembre|"
    "ate|obrigado|obrigada|ola|janeiro|fevereiro|marco|maio|junho|julho|setembro|outubro|dezembro|"
    "tot|dagen|dag|weken|uur|laatste|vandaag|bedankt|januari|februari|maart|mei|augustus|"
    "dzis|dzisiaj|jutro|dni|dzien|tydzien|godzin|ostatnia|ostatnie|tylko|dziekujemy|stycznia|"
    "lutego|"
    "marca|kwietnia|maja|czerwca|lipca|sierpnia|wrzesnia|pazdziernika|listopada|grudnia"};

}  // namespace

std::span<const EventAction> eventActions() {
    return actions;
}

std::span<const std::string_view> eventActionWords() {
    return actionWords;
}

std::span<const std::string_view> eventGoods() {
    return goodsTable;
}

std::span<const std::string_view> eventFilling() {
    return fillingTable;
}

}  // namespace brindlet
