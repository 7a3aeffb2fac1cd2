SIMISA@@@@@@@@@@JINX0P0t______

Serial ( 1 )
TrackPDPs (
	TrackPDP ( -6100 14900 120.5 10.0 -310.2 1 1 )
	TrackPDP ( -6098 14901 210.0 12.0 -150.0 1 1 )
)
TrackPath (
	TrPathName ( "RY_Colliery_Junction" )
	Name ( "Colliery to Junction" )
	TrPathStart ( "Colliery" )
	TrPathEnd ( "Junction" )
	TrPathNodes ( 2
		TrPathNode ( 00000000 1 4294967295 0 )
		TrPathNode ( 00000000 4294967295 4294967295 1 )
	)
)
