namespace rakeyard {}
