// ContentView in a comment is no use.
Item { ContentView {} }
