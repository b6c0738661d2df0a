// Keeps the support libraries non-empty while they have nothing else.
