#pragma once

class QPlainTextEdit;

namespace controls {

/// As long as the memo holds an endless word (more than a thousand signs without a blank), it is wrapped at
/// any sign instead of at words, whatever brings the word in. Once a memo.
void wrapEndlessWords(QPlainTextEdit* memo);

} // namespace controls
