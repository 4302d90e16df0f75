#pragma once

#include <QLockFile>
#include <QString>

#include <functional>

namespace hospital {

/// What stands at a place where a hospital is expected.
enum class FileState {
    Missing,
    Unfinished, ///< nothing in it yet: its making was cut off. May be made anew
    Hospital,
    Foreign, ///< something else, or a hospital too damaged to tell
};
FileState stateOf(const QString& file);

/// Makes a folder and those above it, each that was missing for the owner only. Raises 75.
void makeOwnFolder(const QString& folder);
/// An empty file that only the owner can read and write. Raises 75, also when it is there.
void createOwnFile(const QString& file);
/// Also under another name, or through a link. False when one of them is missing.
bool isSameFile(const QString& one, const QString& other);
/// Removes a file with the journals that belong to it.
void removeWithJournals(const QString& file);
/// Takes the place of `to` in one step; journals that stand beside either name go, since they belong to
/// another file. Nobody may have either open. Raises 75.
void moveIntoPlace(const QString& from, const QString& to);

/// The right to make or replace a file, held by one program at a time and gone with it, however it ends.
class MakingLock {
  public:
    /// Waits as long as another one holds it; `waiting` is called now and then meanwhile. Raises 75 when
    /// there is no writing beside the file.
    MakingLock(const QString& file, const std::function<void()>& waiting);

  private:
    QLockFile m_lock;
};

} // namespace hospital
