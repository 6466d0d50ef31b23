#include "sample/MessageComposer.h"

#include <algorithm>
#include <array>

#include "sample/MessageHeader.h"
#include "sample/MessageParts.h"
#include "sample/MimeText.h"
#include "sample/Random.h"
#include "sample/TextEncoding.h"

namespace brindlet::sample {
namespace {

constexpr std::size_t attachmentLine = 77;
constexpr std::size_t plistSize = 520;

std::string_view attachmentName(std::string_view category, std::uint64_t choice) {
    constexpr std::array<std::string_view, 3> papers{"statement.pdf", "invoice.pdf", "terms.pdf"};
    constexpr std::array<std::string_view, 4> pictures{"IMG_2041.jpg", "harbour.jpg", "plan.pdf",
                                                       "garden.jpg"};
    constexpr std::array<std::string_view, 3> others{"image001.png", "banner.png", "header.jpg"};
    if (category == "billOrPayment" || category == "receiptOrOrderOrShipping")
        return papers[reduced(choice, papers.size())];
    if (category == "personalMessageOrReminder" || category == "cannotTell")
        return pictures[reduced(choice, pictures.size())];
    return others[reduced(choice, others.size())];
}

std::string_view mediaType(std::string_view name) {
    if (name.ends_with(".pdf")) return "application/pdf";
    if (name.ends_with(".png")) return "image/png";
    return "image/jpeg";
}

std::string noise(std::uint64_t key, std::size_t size) {
    Random random(key);
    std::string bytes(size, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(static_cast<unsigned char>(random.below(256)));
    return bytes;
}

}  // namespace

/// The making of one message.
struct MessageComposer::Build {
    const MessageComposer& composer;
    const PlannedMessage& message;
    std::string& out;
    Filling filling;
    Random random;
    Letter letter;
    Filler filler;
    TextEncoding encoding{};
    Attachment attachment{};
    std::string boundary;

    Build(const MessageComposer& owner, const PlannedMessage& planned, std::string& file)
        : composer(owner),
          message(planned),
          out(file),
          filling{owner.texts_.words(), planned.key, planned.sender, planned.recipients.front(),
                  planned.dateSent},
          random(mixed(planned.key, 0xb0d1)),
          filler(owner.texts_, *planned.family, filling),
          boundary("=_" + token(mixed(planned.key, 0xb7), 28)) {
        writeLetter();
        bool ascii = message.family->ascii;
        if (ascii && random.chance(90)) {
            for (std::string& paragraph : letter.paragraphs) paragraph = typeset(paragraph);
            letter.paragraphs.push_back("\u00a9 " + std::string(letter.senderName));
            ascii = false;
        }
        bool fitsLatin1 = true;
        if (!ascii)
            for (const std::string& paragraph : letter.paragraphs)
                fitsLatin1 = fitsLatin1 && latin1(paragraph).has_value();
        encoding = chooseEncoding(ascii, fitsLatin1, random);
    }

    void writeLetter() {
        const Family& family = *message.family;
        letter.subject = message.subject;
        letter.senderName = message.sender.name.empty() ? std::string_view(message.sender.address)
                                                        : std::string_view(message.sender.name);
        letter.senderDomain = message.sender.domain();
        letter.machineSent = !family.fromContact();
        letter.key = message.key;
        const auto add = [&](const std::vector<Template>& from, std::size_t which) {
            letter.paragraphs.push_back(from[which].filled(filling));
        };
        const auto& ownOpening = family.subjects[message.subjectLine].opening;
        if (ownOpening)
            letter.paragraphs.push_back(ownOpening->filled(filling));
        else
            add(family.openings, random.below(family.openings.size()));
        const std::size_t sayings = family.sayings.size();
        const std::size_t count = std::min<std::size_t>(sayings, random.between(1, 4));
        // Sayings keep their order, so that a text does not go back on itself.
        std::size_t left = count;
        for (std::size_t i = 0; i < sayings && left > 0; ++i)
            if (random.below(sayings - i) < left) {
                add(family.sayings, i);
                --left;
            }
        add(family.endings, random.below(family.endings.size()));
    }

    void appendTextHeader(std::string_view type) {
        out.append("Content-Type: text/").append(type).append("; charset=\"");
        out.append(encoding.charset).append("\"\nContent-Transfer-Encoding: ");
        out.append(transferName(encoding.transfer)).append("\n\n");
    }

    void appendText(std::string_view type, std::size_t size) {
        appendTextHeader(type);
        // What the transfer adds comes off the size.
        if (encoding.transfer == Transfer::base64) size = size / 4 * 3;
        if (encoding.transfer == Transfer::quotedPrintable) size = size / 16 * 15;
        const std::string text = type == "html" ? htmlPart(letter, filler, composer.texts_.style(),
                                                           encoding.charset, size)
                                                : wrapped(plainPart(letter, filler, size), "");
        out += encoded(text, encoding);
    }

    void appendTexts(std::size_t size) {
        if (message.shape == Shape::plain) return appendText("plain", size);
        if (message.shape == Shape::html) return appendText("html", size);
        const std::string inner = "--" + boundary + "_alt";
        out += "Content-Type: multipart/alternative;\n boundary=\"" + boundary + "_alt\"\n\n" +
               inner + '\n';
        const std::size_t plainSize = std::min<std::size_t>(size / 5, 9'000);
        appendText("plain", plainSize);
        out += '\n' + inner + '\n';
        appendText("html", size - std::min(size, plainSize + 400));
        out += '\n' + inner + "--\n";
    }

    void appendAttachment(std::size_t size) {
        attachment.name = attachmentName(message.family->category, mixed(message.key, 0xa77a));
        out += "--" + boundary + "\nContent-Type: ";
        out.append(mediaType(attachment.name)).append("; name=\"").append(attachment.name);
        out.append(
            "\"\nContent-Transfer-Encoding: base64\nContent-Disposition: attachment; "
            "filename=\"");
        out.append(attachment.name).append("\"\n");
        if (message.kind == FileKind::partial) {
            const std::size_t apart = 2'000 + random.below(20'000);
            attachment.apart = noise(mixed(message.key, 0xa9a27), apart);
            out += "X-Apple-Content-Length: " + std::to_string(apart / 57 * 77) + "\n\n";
        } else {
            out += '\n';
            const std::string& lines = composer.attachmentLines_;
            const std::size_t most = lines.size() / attachmentLine;
            std::size_t left = std::max<std::size_t>(size / attachmentLine, 1);
            while (left > 0) {
                const std::size_t from = random.below(most);
                const std::size_t count = std::min(left, most - from);
                out.append(lines, from * attachmentLine, count * attachmentLine);
                left -= count;
            }
        }
        out += "--" + boundary + "--\n";
    }

    void run() {
        const auto target = static_cast<std::size_t>(message.targetSize);
        appendHeader(out, message, random, target);
        const std::size_t used = out.size() + plistSize;
        const std::size_t size = target > used ? target - used : 0;
        // What is long is mostly attachments.
        const std::size_t mostText =
            (message.shape == Shape::plain ? 12'000u : 34'000u) + random.below(24'000);
        const bool mixedParts = size > mostText || message.kind == FileKind::partial;
        if (!mixedParts) return appendTexts(size);
        out += "Content-Type: multipart/mixed;\n boundary=\"" + boundary +
               "\"\n\nThis is a multi-part message in MIME format.\n\n--" + boundary + '\n';
        const std::size_t textSize = size > mostText ? random.between(4'000, mostText) : size;
        appendTexts(textSize);
        out += '\n';
        appendAttachment(size - std::min(size, textSize));
    }
};

MessageComposer::MessageComposer(const SampleTexts& texts) : texts_(texts) {
    attachmentLines_ = base64Lines(noise(0xa77ac4ed, std::size_t{57} * 6'000));
}

Attachment MessageComposer::compose(const PlannedMessage& message, std::string& file) const {
    file.clear();
    switch (message.trouble) {
        case Trouble::emptyFile:
        case Trouble::missingFile:
            return {};
        case Trouble::binaryFile:
            file = noise(message.key, 3'000);
            return {};
        default:
            break;
    }
    beginEmlx(file);
    Attachment attachment;
    Build build(*this, message, file);
    if (message.trouble == Trouble::fileWithoutHeader) {
        for (const std::string& paragraph : build.letter.paragraphs) file += paragraph + '\n';
    } else {
        build.run();
        attachment = std::move(build.attachment);
    }
    finishEmlx(file, message.flags);
    return attachment;
}

std::string MessageComposer::summary(const PlannedMessage& message) const {
    std::string unused;
    const Build build(*this, message, unused);
    std::string text;
    for (const std::string& paragraph : build.letter.paragraphs) text += paragraph + ' ';
    return text;
}

}  // namespace brindlet::sample
