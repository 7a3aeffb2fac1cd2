SIMISA@@@@@@@@@@JINX0s1t______

shape ( placeholder of RY_Van134 )
