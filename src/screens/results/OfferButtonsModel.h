#pragma once

#include <QtQml/qqmlregistration.h>
#include <QAbstractListModel>
#include <vector>

#include "words/OfferWords.h"

namespace brindlet::screens {

/// The buttons of an offer.
class OfferButtonsModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")

  public:
    enum Role { LabelRole = Qt::UserRole + 1, HelpRole, DeclinesRole };

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Notifies what differs.
    void set(const std::vector<OfferButton>& buttons);
    const std::vector<OfferButton>& buttons() const { return buttons_; }

  private:
    std::vector<OfferButton> buttons_;
};

}  // namespace brindlet::screens
