#include "model/MibCheck.h"

#include <algorithm>
#include <set>

namespace olt {

namespace {

constexpr std::uint16_t kMapper = 130;
constexpr std::uint16_t kTCont = 262;
constexpr std::uint16_t kGemInterworkingTp = 266;
constexpr std::uint16_t kGemPort = 268;
constexpr std::uint64_t kUpstream = 1;
constexpr std::uint64_t kDownstream = 2;

class Checker
{
public:
    Checker(const Mib& mib, const Catalogue& catalogue)
        : m_Mib(mib), m_Catalogue(catalogue), m_Pointers(pointersOf(mib, catalogue))
    {}

    MibCheck check()
    {
        for (const auto& pointer : m_Pointers)
            checkTarget(pointer);
        forEach(kGemPort, [this](const MibEntity& port) { checkGemPort(port); });
        forEach(kGemInterworkingTp, [this](const MibEntity& tp) { checkMapperOf(tp); });
        std::stable_sort(m_Check.findings.begin(), m_Check.findings.end(),
                         [](const auto& a, const auto& b) { return a.entity < b.entity; });
        return std::move(m_Check);
    }

private:
    template <typename Use>
    void forEach(std::uint16_t entityClass, Use use)
    {
        const auto end = m_Mib.entities().upper_bound({entityClass, 0xFFFF});
        for (auto at = m_Mib.entities().lower_bound({entityClass, 0}); at != end; ++at)
            use(at->second);
    }

    void report(Mib::Key entity, std::string text) { m_Check.findings.push_back({entity, std::move(text)}); }

    [[nodiscard]] std::string nameOf(Mib::Key key) const
    {
        return m_Catalogue.ofNumber(key.first).label() + " instance " + std::to_string(key.second);
    }

    void checkTarget(const Pointer& pointer)
    {
        if (pointer.exists)
            return;
        if (!pointer.canExist) {
            ++m_Check.unchecked;
            return;
        }
        const std::string what = pointer.rule->attribute
                                     ? std::string(pointer.rule->attribute) + " names " + nameOf(pointer.to)
                                     : "belongs to " + nameOf(pointer.to);
        report(pointer.from, what + ", which doesn't exist");
    }

    [[nodiscard]] const Pointer* pointerTo(Mib::Key from, std::uint16_t targetClass) const
    {
        const auto found = std::find_if(m_Pointers.begin(), m_Pointers.end(), [&](const auto& pointer) {
            return pointer.from == from && pointer.to.first == targetClass;
        });
        return found == m_Pointers.end() ? nullptr : &*found;
    }

    void checkGemPort(const MibEntity& port)
    {
        const Mib::Key key{kGemPort, port.instance};
        const auto direction = numberOf(port, "Direction").value_or(0);
        if ((direction & kUpstream) != 0)
            checkTCont(key);
        const auto portId = numberOf(port, "PortId");
        if (!portId)
            return;
        for (const std::uint64_t way : {kUpstream, kDownstream}) {
            if ((direction & way) != 0 && !m_PortIds.insert({way, *portId}).second) {
                report(key,
                       "port-ID " + std::to_string(*portId) + " is used by another GEM port of the same direction");
                return;
            }
        }
    }

    void checkTCont(Mib::Key port)
    {
        const Pointer* const pointer = pointerTo(port, kTCont);
        if (!pointer) {
            report(port, "carries upstream traffic, but TcontPointer names no T-CONT");
            return;
        }
        if (!pointer->exists)
            return;
        const auto alloc = numberOf(m_Mib.entities().at(pointer->to), "AllocId");
        if (alloc && (*alloc == 0xFFFF || *alloc == 0xFF))
            report(port, "carries upstream traffic over " + nameOf(pointer->to) + ", which has no alloc-ID");
    }

    void checkMapperOf(const MibEntity& tp)
    {
        const Mib::Key key{kGemInterworkingTp, tp.instance};
        const Pointer* const up = pointerTo(key, kMapper);
        if (!up || !up->exists)
            return;
        const bool back = std::any_of(m_Pointers.begin(), m_Pointers.end(),
                                      [&](const auto& pointer) { return pointer.from == up->to && pointer.to == key; });
        if (!back)
            report(key, "ServiceProfilePointer names " + nameOf(up->to) + ", none of whose p-bits leads here");
    }

    const Mib& m_Mib;
    const Catalogue& m_Catalogue;
    std::vector<Pointer> m_Pointers;
    std::set<std::pair<std::uint64_t, std::uint64_t>> m_PortIds;
    MibCheck m_Check;
};

}  // namespace

MibCheck checkMib(const Mib& mib, const Catalogue& catalogue)
{
    return Checker(mib, catalogue).check();
}

}  // namespace olt
