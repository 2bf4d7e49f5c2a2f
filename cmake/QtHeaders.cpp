// Of this library only the precompiled header is wanted.
