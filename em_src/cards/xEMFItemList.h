#ifndef TOLVAD_CARDS_XEMFITEMLIST_H
#define TOLVAD_CARDS_XEMFITEMLIST_H

#include <string>
#include <unordered_map>
#include <vector>

class xEMFDesc;

// The names offered in the selection lists of the Data Format card, in a
// fixed structure that placing an item depends on: 0 "***" (nothing), 1 to
// 12 the fixed items, then the user items, then the channel labels of each
// orientation present, in code order. A channel label is the orientation's
// name with its channel index, "TzRx[3]"; in the frequency domain each index
// has a quadrature label "Q TzRx[3]" and an in phase label "P TzRx[3]". In
// consecutive mode only the labels of index 1 are offered.
class xEMFItemList {
public:
    static const char* const kNothing;

    // A channel as its label names it.
    struct Channel {
        char component = 0;   // 0 in the time domain, 'Q' or 'P' in the frequency domain
        int code = 0;
        int index = 0;
    };

    // The names from the record: its user items, its orientations with a
    // count (101 to 109), channels up to the count (and the columns held).
    void Build(const xEMFDesc& format, bool random);

    const std::vector<std::string>& Names() const { return names; }
    int Size() const { return static_cast<int>(names.size()); }
    // The entry's name; empty for an index outside the list.
    std::string Name(int index) const;
    // The first entry of that name; 0 when there is none.
    int IndexOf(const std::string& name) const;

    bool IsFixed(int index) const;
    bool IsUser(int index) const;
    bool IsChannel(int index) const;
    // The user item of an entry, from 0.
    int UserIndex(int index) const { return index - kFirstUser; }

    static std::string ChannelLabel(const Channel& channel);
    // Takes a label apart: the orientation from its first four characters
    // (behind the leading two in the frequency domain), the component from its
    // first character, the index from between its last brackets. False when
    // that names no orientation 101 to 109 or no index from 1.
    static bool ParseChannel(const std::string& label, bool frequencyDomain, Channel& channel);

private:
    static constexpr int kFirstUser = 13;

    void Add(const std::string& name);

    std::vector<std::string> names;
    std::unordered_map<std::string, int> firstIndex;
    int users = 0;
};

#endif
