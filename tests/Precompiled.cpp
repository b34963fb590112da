// Nothing: the tests take over the header that is compiled with this.
