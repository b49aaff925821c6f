# An advance payment of either kind, a note, and one that is closed.
INSERT INTO OperacionParalela (cOperCode,cOperTipo,nTarjNumb,nMoneda,nMontoSoles,nMontoDolares,cEstado,cDocSerie,cDocCodigo,sGlosa,dOperFech) VALUES (5,22,'00000007',2,75,25,'1','PA1',3,'BODA','24/11/2026 10:00')
INSERT INTO OperacionParalela (cOperCode,cOperTipo,nTarjNumb,nMoneda,nMontoSoles,nMontoDolares,cEstado,cDocSerie,cDocCodigo,sGlosa,dOperFech) VALUES (6,23,'',1,80,0,'1','PV1',4,'CENA','24/11/2026 10:00')
INSERT INTO OperacionParalela (cOperCode,cOperTipo,nTarjNumb,nMoneda,nMontoSoles,nMontoDolares,cEstado,cDocSerie,cDocCodigo,sGlosa,dOperFech) VALUES (8,21,'',0,9,0,'1','NC1',5,'','24/11/2026 10:00')
INSERT INTO OperacionParalela (cOperCode,cOperTipo,nTarjNumb,nMoneda,nMontoSoles,nMontoDolares,cEstado,cDocSerie,cDocCodigo,sGlosa,dOperFech) VALUES (9,22,'',1,5,0,'2','PA1',6,'','24/11/2026 10:00')
