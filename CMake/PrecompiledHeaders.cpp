// A library has at least one file: this one is about the headers that it precompiles.
