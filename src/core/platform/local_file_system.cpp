// Filled in next; declared so that the libraries link.
