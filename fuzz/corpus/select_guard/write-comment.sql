select 1 /* ; */ -- x
delete from 票据