#pragma once

#include "platform/ado/Provider.h"
#include "server/demo/Chance.h"

#include <QString>

#include <optional>
#include <span>

namespace demo {

/// What another department does now and then.
enum class Deed {
    Ward,     ///< a ward asks for one or two exams
    Payment,  ///< the cashier takes the money for the latest assessment that waits
    Prepaid,  ///< the prepaid office sells an exam
    Discharge ///< a ward tells that a patient goes home
};

struct NamedDeed {
    const char* name;
    Deed deed;
};
std::span<const NamedDeed> deeds();

/// The other departments of the made-up hospital, to try the program with. Each deed is one transaction.
class Neighbours {
  public:
    /// `server` is a session in NUCLEAR, a hospital file's or a SQL Server's; it must outlive this. Raises
    /// 58, and changes nothing, where the hospital is not the made-up one or holds a patient who is not made
    /// up.
    Neighbours(ado::Provider& server, std::uint64_t seed);

    /// Does it and tells what was done, in a sentence; or why there was nothing to do.
    QString act(Deed deed);
    /// The next one in turn.
    QString actInTurn();

  private:
    QString askFromWard();
    QString takePayment();
    QString sellPrepaid();
    QString giveNotice();

    /// A row drawn from those of the result; none when there is none.
    std::optional<qsizetype> draw(const ado::Rows& rows);
    int nextWardNumber();
    QString nextNumber(const ado::Statement& last, const char* prefix);

    ado::Provider& m_server;
    Chance m_chance;
    std::size_t m_turn = 0;
};

} // namespace demo
