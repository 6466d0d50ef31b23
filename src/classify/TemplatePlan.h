#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Cuts the cost of a scan: subjects of one sender that share a skeleton of frequent words form a
/// cluster, of which the model reads a few probes and the rest inherits.
///
/// Five mails of one sender, "Your order 17 has shipped" to "Your order 99 has shipped", have the
/// frequent words {your, order, has, shipped}; all five skeletons are "your order has shipped", so
/// the first is the probe and the other four are members.
namespace brindlet::TemplatePlan {

struct Message {
    std::string_view sender;
    std::string_view subject;
};

struct Cluster {
    /// The indices that the model reads; they stand in the plan's probes too.
    std::vector<std::size_t> probes;
    /// The indices that inherit.
    std::vector<std::size_t> members;

    friend bool operator==(const Cluster&, const Cluster&) = default;
};

/// All indices refer to the list that the plan was made from. Each stands in exactly one of the
/// plan's probes or some cluster's members.
struct Plan {
    std::vector<std::size_t> probes;
    std::vector<Cluster> clusters;

    friend bool operator==(const Plan&, const Plan&) = default;
};

/// What makes two senders one: the address without its display name, lower-cased. Not the key that
/// rules are learned under, which is wider.
std::string senderKey(std::string_view sender);

/// Pure. Groups come in the order of their first message, and lists of one skeleton
/// likewise, so runs repeat.
Plan make(const std::vector<Message>& messages);

}  // namespace brindlet::TemplatePlan
