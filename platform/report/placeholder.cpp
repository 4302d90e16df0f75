// The library's first source comes with its first piece.
